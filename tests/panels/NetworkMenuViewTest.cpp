#include "panels/NetworkMenuView.h"

#include "model/StatsFormat.h"
#include "panels/PanelFixture.h"
#include "panels/kit/Series.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

constexpr std::string_view kHeader = ",bytes_in,bytes_out,\n";

class NetworkMenuViewTest : public PanelFixture {
protected:
    MenuPanel panel(const NetworkStats& stats, const std::vector<TopIOProcess>& top = {}) const {
        return networkPanel(stats, context(StatsModule::network), top);
    }
    const NetworkStats& recorded() const { return recordedFigures().network; }
    /// Lets the tool print a block that is published.
    void print(std::string_view rows) {
        for (const std::string_view text : {kHeader, kHeader, rows, kHeader}) launcher.write(text);
        runLoop.runPosted();
    }
};

TEST_F(NetworkMenuViewTest, CardsStandInTheirOrder) {
    EXPECT_THAT(outline(panel(recorded())),
                ElementsAre("Upload", "Local IP", "Received since boot", "Processes"));
    EXPECT_EQ(panel(recorded()).name, "Network");
}

TEST_F(NetworkMenuViewTest, SendingStandsFirstAndGrowsUpward) {
    const MenuPanel shown = panel(recorded());
    EXPECT_EQ(at<BigRateHeader>(shown, 0, 0), (BigRateHeader{"12 KB/s", "Upload", Series::primary, "3.4 MB/s",
                                                             "Download", Series::secondary}));
    const auto mirrored = std::get<MirroredHistoryGraph>(at<Graph>(shown, 0, 1).graph);
    EXPECT_EQ(mirrored.height, 30);
    EXPECT_THAT(mirrored.top, testing::ElementsAreArray(recorded().upHistory.values()));
    EXPECT_THAT(mirrored.bottom, testing::ElementsAreArray(recorded().downHistory.values()));
    EXPECT_THAT(
        at<PeakRow>(shown, 0, 2).items,
        ElementsAre(PeakRow::Item{"Peak", StatsFormat::rate(std::ranges::max(recorded().upHistory))},
                    PeakRow::Item{"Peak", StatsFormat::rate(std::ranges::max(recorded().downHistory))}));
}

TEST_F(NetworkMenuViewTest, HoverTellsSendingAboveReceiving) {
    const auto chip = at<Graph>(panel(recorded()), 0, 1).hover->rows(59);
    ASSERT_THAT(chip, SizeIs(2));
    EXPECT_EQ(chip[0].label, "Upload");
    EXPECT_EQ(chip[1].label, "Download");
}

TEST_F(NetworkMenuViewTest, TheAddressStandsInItsRow) {
    EXPECT_THAT(rows(panel(recorded()).cards[1]), ElementsAre(Pair("Local IP", "192.0.2.24")));
}

TEST_F(NetworkMenuViewTest, WithoutAnAddressTheRowsValueIsEmpty) {
    EXPECT_THAT(rows(panel({}).cards[1]), ElementsAre(Pair("Local IP", "")));
}

TEST_F(NetworkMenuViewTest, TotalsAreInBytes) {
    EXPECT_THAT(rows(panel(recorded()).cards[2]),
                ElementsAre(Pair("Received since boot", "86.4 GB"), Pair("Sent since boot", "9.12 GB")));
}

TEST_F(NetworkMenuViewTest, EachMetricHidesItsSection) {
    hide("localIP", StatsModule::network);
    EXPECT_THAT(outline(panel(recorded())), ElementsAre("Upload", "Received since boot", "Processes"));
    hide("totals", StatsModule::network);
    EXPECT_THAT(outline(panel(recorded())), ElementsAre("Upload", "Processes"));
    hide("top", StatsModule::network);
    EXPECT_THAT(outline(panel(recorded())), ElementsAre("Upload"));
}

TEST_F(NetworkMenuViewTest, DetailsOfTheConnectionAreNotShown) {
    for (const MenuCard& card : panel(recorded()).cards) {
        for (const auto& [label, value] : rows(card)) {
            EXPECT_NE(value, *recorded().router);
            EXPECT_NE(value, *recorded().mac);
            EXPECT_NE(value, *recorded().netName);
            EXPECT_NE(value, *recorded().dns);
        }
    }
}

TEST_F(NetworkMenuViewTest, ProcessesHaveAColumnForEachDirection) {
    const TopIOProcess process{7, "one", 5000, 200};
    const IOProcessCard card = at<IOProcessCard>(panel(recorded(), {process}), 3, 0);
    EXPECT_EQ(card.title, "Processes");
    EXPECT_EQ(card.columns[0].label, "Download");
    EXPECT_EQ(card.columns[0].value(process), 5000);
    EXPECT_EQ(card.columns[1].label, "Upload");
    EXPECT_EQ(card.columns[1].value(process), 200);
    EXPECT_EQ(card.rowCount, 5);
    EXPECT_THAT(card.processes, ElementsAre(process));
}

TEST_F(NetworkMenuViewTest, TheToolRunsWhileThePanelIsOpen) {
    auto view = makeView(StatsModule::network);
    ASSERT_THAT(launcher.tools, SizeIs(1));
    EXPECT_TRUE(launcher.tools[0]->isRunning);
    EXPECT_EQ(runLoop.timerCount(), 0u) << "it prints by itself";
    view.reset();
    EXPECT_FALSE(launcher.tools[0]->isRunning);
    EXPECT_EQ(liveTools.count(), 0u);
}

TEST_F(NetworkMenuViewTest, TheListFollowsTheTool) {
    const auto view = makeView(StatsModule::network);
    int changes = 0;
    const Subscription changed = view->changed.subscribe([&changes] { ++changes; });
    EXPECT_THAT(at<IOProcessCard>(view->panel(), 3, 0).processes, IsEmpty());
    print("browser.7,2000,4000,\na.1,1,1,\nb.2,2,2,\nc.3,3,3,\nd.4,4,4,\ne.5,5,5,\n");
    EXPECT_EQ(changes, 1);
    const auto top = at<IOProcessCard>(view->panel(), 3, 0).processes;
    ASSERT_THAT(top, SizeIs(5));
    EXPECT_EQ(top[0], (TopIOProcess{7, "browser", 1000, 2000}));
}

TEST_F(NetworkMenuViewTest, WithTheListHiddenAtOpeningTheToolNeverStarts) {
    hide("top", StatsModule::network);
    auto view = makeView(StatsModule::network);
    settings.setMetric("top", true, StatsModule::network);
    runLoop.advance(60);
    EXPECT_THAT(launcher.tools, IsEmpty());
    EXPECT_THAT(at<IOProcessCard>(view->panel(), 3, 0).processes, IsEmpty());
    view.reset();
    EXPECT_THAT(launcher.tools, IsEmpty());
}

TEST_F(NetworkMenuViewTest, AMissingToolLeavesTheListEmpty) {
    launcher.exists = false;
    const auto view = makeView(StatsModule::network);
    EXPECT_THAT(launcher.tools, IsEmpty());
    EXPECT_THAT(outline(view->panel()), SizeIs(4));
}

TEST_F(NetworkMenuViewTest, ClosingTellsNobodyOfTheEmptiedList) {
    auto view = makeView(StatsModule::network);
    print("browser.7,2000,4000,\n");
    int changes = 0;
    const Subscription changed = view->changed.subscribe([&changes] { ++changes; });
    view.reset();
    EXPECT_EQ(changes, 0);
}

TEST_F(NetworkMenuViewTest, ABlockThatComesAfterThePanelDoesNothing) {
    auto view = makeView(StatsModule::network);
    for (const std::string_view text : {kHeader, kHeader, std::string_view("a.1,2,2,\n"), kHeader})
        launcher.write(text);
    ASSERT_GT(runLoop.postedCount(), 0u);
    view.reset();
    runLoop.runPosted();
    EXPECT_FALSE(launcher.write(kHeader)) << "nobody reads any more";
}

}  // namespace
}  // namespace velmora
