#include "panels/DiskMenuView.h"

#include "model/StatsFormat.h"
#include "panels/PanelFixture.h"
#include "panels/kit/Series.h"

#include <gmock/gmock.h>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class DiskMenuViewTest : public PanelFixture {
protected:
    MenuPanel panel(const DiskStats& stats, const std::vector<TopIOProcess>& top = {}) const {
        return diskPanel(stats, context(StatsModule::disk), top);
    }
    MenuPanel panelOf(const DiskVolume& volume) const {
        DiskStats stats;
        stats.volumes = {volume};
        return panel(stats);
    }
    const DiskStats& recorded() const { return recordedFigures().disk; }
};

TEST_F(DiskMenuViewTest, EachVolumeHasACardBeforeActivityAndProcesses) {
    EXPECT_THAT(outline(panel(recorded())), ElementsAre("System", "Home", "Backup", "Read", "Processes"));
    EXPECT_EQ(panel(recorded()).name, "Disk");
}

TEST_F(DiskMenuViewTest, AVolumeShowsNameRoomBarAndItsRates) {
    const MenuPanel shown = panel(recorded());
    EXPECT_EQ(at<TextLine>(shown, 0, 0), (TextLine{"System", 13, TextLine::Rank::primary}));
    EXPECT_EQ(at<TextLine>(shown, 0, 1), (TextLine{"138 GB free of 512 GB", 11, TextLine::Rank::secondary}));
    EXPECT_EQ(at<UsageBar>(shown, 0, 2), (UsageBar{374.0 / 512, Series::primary, 4}));
    EXPECT_THAT(at<PeakRow>(shown, 0, 3).items,
                ElementsAre(PeakRow::Item{"Read", "41.8 MB/s"}, PeakRow::Item{"Write", "12.6 MB/s"}));
    EXPECT_THAT(shown.cards[0].content, SizeIs(4));
}

TEST_F(DiskMenuViewTest, RoomIsToldInTheWordsOfTheLanguage) {
    l10n.apply("ru");
    EXPECT_EQ(at<TextLine>(panel(recorded()), 0, 1).text,
              "Свободно " + StatsFormat::bytes(138e9, l10n.byteStyle()) + " из " +
                  StatsFormat::bytes(512e9, l10n.byteStyle()));
}

TEST_F(DiskMenuViewTest, AVolumeWithoutADeviceNameShowsRatesOfZero) {
    DiskVolume volume;
    volume.readPerSec = 5e6;
    volume.writePerSec = 5e6;
    EXPECT_THAT(at<PeakRow>(panelOf(volume), 0, 3).items,
                ElementsAre(PeakRow::Item{"Read", "0 KB/s"}, PeakRow::Item{"Write", "0 KB/s"}));
    volume.bsd = "sda1";
    EXPECT_EQ(at<PeakRow>(panelOf(volume), 0, 3).items.at(0).value, "5.0 MB/s");
}

TEST_F(DiskMenuViewTest, AVolumeOfUnknownSizeHasAnEmptyBar) {
    EXPECT_EQ(at<UsageBar>(panelOf({}), 0, 2).fraction, 0);
    EXPECT_EQ(at<TextLine>(panelOf({}), 0, 1).text, "Zero KB free of Zero KB");
}

TEST_F(DiskMenuViewTest, MoreFreeThanThereIsCountsAsEmpty) {
    DiskVolume volume;
    volume.total = 100;
    volume.free = 150;
    EXPECT_EQ(at<UsageBar>(panelOf(volume), 0, 2).fraction, 0);
}

TEST_F(DiskMenuViewTest, NamesPassWholeWhateverTheyHold) {
    for (const std::string& name :
         {std::string(200, 'x'), std::string("قرص النظام"), std::string("💾 %d %@"), std::string()}) {
        DiskVolume volume;
        volume.name = name;
        EXPECT_EQ(at<TextLine>(panelOf(volume), 0, 0).text, name);
    }
}

TEST_F(DiskMenuViewTest, AFullVolumeHasAFullBar) {
    DiskVolume volume;
    volume.total = 100;
    EXPECT_EQ(at<UsageBar>(panelOf(volume), 0, 2).fraction, 1);
}

TEST_F(DiskMenuViewTest, ActivityShowsBothRatesTheGraphAndThePeaks) {
    const MenuPanel shown = panel(recorded());
    EXPECT_EQ(at<BigRateHeader>(shown, 3, 0),
              (BigRateHeader{"44.9 MB/s", "Read", Series::primary, "13.5 MB/s", "Write", Series::secondary}));
    const auto mirrored = std::get<MirroredHistoryGraph>(at<Graph>(shown, 3, 1).graph);
    EXPECT_EQ(mirrored.height, 30);
    EXPECT_EQ(mirrored.topTint, Series::primary);
    EXPECT_EQ(mirrored.bottomTint, Series::secondary);
    EXPECT_THAT(mirrored.top, testing::ElementsAreArray(recorded().readHistory.values()));
    EXPECT_THAT(mirrored.bottom, testing::ElementsAreArray(recorded().writeHistory.values()));
    EXPECT_THAT(at<PeakRow>(shown, 3, 2).items, SizeIs(2));
}

TEST_F(DiskMenuViewTest, WithoutVolumesActivityProcessesAndFooterRemain) {
    const MenuPanel shown = makeView(StatsModule::disk)->panel();
    EXPECT_THAT(outline(shown), ElementsAre("Read", "Processes"));
    EXPECT_THAT(shown.footer.shortcuts, SizeIs(1));
}

TEST_F(DiskMenuViewTest, EachMetricHidesItsSection) {
    hide("volumes", StatsModule::disk);
    EXPECT_THAT(outline(panel(recorded())), ElementsAre("Read", "Processes"));
    hide("activity", StatsModule::disk);
    EXPECT_THAT(outline(panel(recorded())), ElementsAre("Processes"));
    hide("top", StatsModule::disk);
    EXPECT_THAT(outline(panel(recorded())), IsEmpty());
}

TEST_F(DiskMenuViewTest, ProcessesHaveAColumnForEachDirection) {
    const TopIOProcess process{7, "one", 5000, 200};
    const IOProcessCard card = at<IOProcessCard>(panel(recorded(), {process}), 4, 0);
    EXPECT_EQ(card.title, "Processes");
    EXPECT_EQ(card.rowCount, 5);
    EXPECT_EQ(card.columns[0].label, "Read");
    EXPECT_EQ(card.columns[0].value(process), 5000);
    EXPECT_EQ(card.columns[1].label, "Write");
    EXPECT_EQ(card.columns[1].value(process), 200);
    EXPECT_THAT(card.processes, ElementsAre(process));
}

TEST_F(DiskMenuViewTest, TheFirstListComesAfterTheSamplersPause) {
    counters->processes[7] = ProcessCounters{0, 0, 0};
    counters->names[7] = "one";
    const auto view = makeView(StatsModule::disk);
    runWork();
    counters->processes[7] = ProcessCounters{70'000, 7'000, 0};
    advance(0.5);
    EXPECT_THAT(at<IOProcessCard>(view->panel(), 1, 0).processes, IsEmpty());
    advance(0.2);
    const std::vector<TopIOProcess> top = at<IOProcessCard>(view->panel(), 1, 0).processes;
    ASSERT_THAT(top, SizeIs(1));
    EXPECT_EQ(top[0].name, "one");
    EXPECT_NEAR(top[0].incoming, 100'000, 1);
    EXPECT_NEAR(top[0].outgoing, 10'000, 1);
}

TEST_F(DiskMenuViewTest, LaterListsComeEveryTwoSeconds) {
    counters->processes[7] = ProcessCounters{0, 0, 0};
    const auto view = makeView(StatsModule::disk);
    advance(0.7);
    EXPECT_EQ(counters->walkCount, 2);
    advance(1.3);
    EXPECT_EQ(counters->walkCount, 3);
    advance(2);
    EXPECT_EQ(counters->walkCount, 4);
}

TEST_F(DiskMenuViewTest, OnePassRunsAtATime) {
    const auto view = makeView(StatsModule::disk);
    ASSERT_EQ(workQueue.pendingCount(), 1u);
    // The queue is busy elsewhere for three ticks.
    runLoop.advance(6);
    EXPECT_EQ(workQueue.pendingCount(), 1u);
    EXPECT_EQ(counters->walkCount, 0);
}

TEST_F(DiskMenuViewTest, HiddenProcessesAreStillSampled) {
    hide("top", StatsModule::disk);
    const auto view = makeView(StatsModule::disk);
    advance(0.7);
    EXPECT_EQ(counters->walkCount, 2);
}

TEST_F(DiskMenuViewTest, APassThatEndsAfterThePanelDoesNothing) {
    auto view = makeView(StatsModule::disk);
    int changes = 0;
    const Subscription changed = view->changed.subscribe([&changes] { ++changes; });
    workQueue.runAll();
    view.reset();
    runLoop.runPosted();
    runLoop.advance(10);
    workQueue.runAll();
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(counters->walkCount, 1) << "the pause and the ticks went with the panel";
}

}  // namespace
}  // namespace velmora
