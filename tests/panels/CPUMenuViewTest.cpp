#include "panels/CPUMenuView.h"

#include "panels/PanelFixture.h"
#include "panels/kit/Series.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

class CPUMenuViewTest : public PanelFixture {
protected:
    MenuPanel panel(const CPUStats& stats, const std::vector<TopProcess>& top = {}) const {
        return cpuPanel(stats, context(StatsModule::cpu), top);
    }
    const CPUStats& recorded() const { return recordedFigures().cpu; }
};

TEST_F(CPUMenuViewTest, CardsStandInTheirOrder) {
    EXPECT_THAT(outline(panel(recorded())), ElementsAre("CPU", "Cores", "GPU", "Processes"));
    EXPECT_EQ(panel(recorded()).name, "CPU");
}

TEST_F(CPUMenuViewTest, UsageCardHasTheHeaderTheGraphAndBothShares) {
    const MenuPanel shown = panel(recorded());
    EXPECT_EQ(at<CardHeader>(shown, 0, 0), (CardHeader{"CPU", "42%", ""}));
    EXPECT_EQ(at<MetricRow>(shown, 0, 2), (MetricRow{Series::primary, "User", "29%", true}));
    EXPECT_EQ(at<MetricRow>(shown, 0, 3), (MetricRow{Series::secondary, "System", "13%", true}));

    const Graph graph = at<Graph>(shown, 0, 1);
    const auto& stacked = std::get<StackedHistoryGraph>(graph.graph);
    EXPECT_EQ(stacked.height, 32);
    EXPECT_THAT(stacked.user, testing::ElementsAreArray(recorded().userHistory.values()));
    EXPECT_THAT(stacked.system, testing::ElementsAreArray(recorded().systemHistory.values()));
}

TEST_F(CPUMenuViewTest, TheGraphTellsAScreenReaderTheNewestShares) {
    const Graph graph = at<Graph>(panel(recorded()), 0, 1);
    EXPECT_EQ(graph.name, "CPU");
    EXPECT_EQ(graph.value, "User 29%, System 13%");
}

TEST_F(CPUMenuViewTest, EveryCardHasTheSameSpacingAndPadding) {
    for (const MenuCard& card : panel(recorded()).cards) {
        EXPECT_EQ(card.spacing, 3);
        EXPECT_EQ(card.verticalPadding, 7);
    }
}

TEST_F(CPUMenuViewTest, PercentagesStayBetweenZeroAndAHundred) {
    CPUStats stats;
    stats.usage = 1.7;
    stats.user = -0.3;
    stats.system = std::numeric_limits<double>::quiet_NaN();
    const MenuPanel shown = panel(stats);
    EXPECT_EQ(at<CardHeader>(shown, 0, 0).value, "100%");
    EXPECT_EQ(at<MetricRow>(shown, 0, 2).value, "0%");
    EXPECT_EQ(at<MetricRow>(shown, 0, 3).value, "0%");
}

TEST_F(CPUMenuViewTest, HoverTellsBothSharesOfTheSlot) {
    const Graph graph = at<Graph>(panel(recorded()), 0, 1);
    ASSERT_TRUE(graph.hover);
    // 60 values fill the slots: the eleventh value stands in slot 10.
    EXPECT_THAT(graph.hover->rows(10), ElementsAre(HoverChipRow{Series::primary, "User", "34%"},
                                                   HoverChipRow{Series::secondary, "System", "14%"}));
    EXPECT_EQ(graph.hover->ago, "%ds ago");
    EXPECT_EQ(graph.hover->now, "Now");
}

TEST_F(CPUMenuViewTest, HoverCountsFewValuesFromTheRight) {
    CPUStats stats;
    stats.userHistory.append(0.1);
    stats.userHistory.append(0.2);
    stats.systemHistory.append(0.3);
    stats.systemHistory.append(0.4);
    const Graph graph = at<Graph>(panel(stats), 0, 1);
    EXPECT_THAT(graph.hover->rows(59), ElementsAre(HoverChipRow{Series::primary, "User", "20%"},
                                                   HoverChipRow{Series::secondary, "System", "40%"}));
    EXPECT_EQ(graph.hover->rows(58).front().value, "10%");
    EXPECT_THAT(graph.hover->rows(57), IsEmpty());
    EXPECT_THAT(graph.hover->rows(0), IsEmpty());
}

TEST_F(CPUMenuViewTest, ASlotPastTheEndGivesNoRows) {
    const Graph graph = at<Graph>(panel(recorded()), 0, 1);
    EXPECT_THAT(graph.hover->rows(60), IsEmpty());
    EXPECT_THAT(graph.hover->rows(-1), IsEmpty());
    EXPECT_THAT(at<Graph>(panel({}), 0, 1).hover->rows(59), IsEmpty());
}

TEST_F(CPUMenuViewTest, HoverCountsInTheModulesOwnInterval) {
    settings.setSampleInterval(5);
    EXPECT_EQ(at<Graph>(panel(recorded()), 0, 1).hover->interval, 5);
    settings.setInterval(1, StatsModule::cpu);
    EXPECT_EQ(at<Graph>(panel(recorded()), 0, 1).hover->interval, 1);
}

TEST_F(CPUMenuViewTest, OneRingPerCoreInTheirOrder) {
    const MenuPanel shown = panel(recorded());
    EXPECT_EQ(at<CardHeader>(shown, 1, 0), (CardHeader{"Cores", "", "8 cores"}));
    const CoreGrid grid = at<CoreGrid>(shown, 1, 1);
    EXPECT_EQ(grid.spacing, 4);
    ASSERT_EQ(grid.rings.size(), 8u);
    EXPECT_EQ(grid.rings[0], (CoreRing{0.71, Series::primary}));
    EXPECT_EQ(grid.rings[7], (CoreRing{0.27, Series::primary}));
    EXPECT_EQ(grid.value, "71%, 38%, 55%, 29%, 47%, 33%, 36%, 27%");
}

TEST_F(CPUMenuViewTest, TheFirstCoresAreTheEfficiencyCoresAndBothKindsHaveTheirMean) {
    // (71 + 38 + 55 + 29) / 4 = 48.25 and (47 + 33 + 36 + 27) / 4 = 35.75.
    EXPECT_THAT(rows(panel(recorded()).cards[1]),
                ElementsAre(Pair("Efficiency cores", "48%"), Pair("Performance cores", "36%")));
}

TEST_F(CPUMenuViewTest, WithoutEfficiencyCoresThereAreNoMeans) {
    CPUStats stats = recorded();
    stats.efficiencyCoreCount = 0;
    EXPECT_THAT(panel(stats).cards[1].content, SizeIs(2));
}

TEST_F(CPUMenuViewTest, TheMeanOfNoCoresIsZero) {
    CPUStats stats;
    stats.perCore = {0.5, 0.7};
    stats.efficiencyCoreCount = 2;
    EXPECT_THAT(rows(panel(stats).cards[1]),
                ElementsAre(Pair("Efficiency cores", "60%"), Pair("Performance cores", "0%")));
}

TEST_F(CPUMenuViewTest, MoreEfficiencyCoresThanCoresMeansAllOfThem) {
    CPUStats stats;
    stats.perCore = {0.5, 0.7};
    stats.efficiencyCoreCount = 64;
    EXPECT_EQ(rows(panel(stats).cards[1]).front().second, "60%");
    stats.efficiencyCoreCount = -3;
    EXPECT_THAT(rows(panel(stats).cards[1]), IsEmpty());
}

TEST_F(CPUMenuViewTest, WithoutCoresTheSectionIsGone) {
    CPUStats stats = recorded();
    stats.perCore.clear();
    EXPECT_THAT(outline(panel(stats)), ElementsAre("CPU", "GPU", "Processes"));
}

TEST_F(CPUMenuViewTest, TheZerosOfTheFirstTickAreEmptyRings) {
    CPUStats stats;
    stats.perCore = {0, 0};
    EXPECT_THAT(at<CoreGrid>(panel(stats), 1, 1).rings,
                ElementsAre(CoreRing{0, Series::primary}, CoreRing{0, Series::primary}));
}

TEST_F(CPUMenuViewTest, HiddenCoresLeaveTheOtherCards) {
    hide("cores", StatsModule::cpu);
    EXPECT_THAT(outline(panel(recorded())), ElementsAre("CPU", "GPU", "Processes"));
}

TEST_F(CPUMenuViewTest, GpuRowHasABarAndAPercentage) {
    EXPECT_EQ(at<BarRow>(panel(recorded()), 2, 0),
              (BarRow{"GPU", UsageBar{0.31, Series::primary, 4}, "31%", 32}));
}

TEST_F(CPUMenuViewTest, WithoutAGpuFigureTheBarIsEmpty) {
    CPUStats stats = recorded();
    stats.gpuUsage.reset();
    EXPECT_EQ(at<BarRow>(panel(stats), 2, 0), (BarRow{"GPU", UsageBar{0, Series::primary, 4}, "—", 32}));
}

TEST_F(CPUMenuViewTest, TheGpuIsCalledSoInEveryLanguage) {
    l10n.apply("ru");
    EXPECT_EQ(at<BarRow>(panel(recorded()), 2, 0).label, "GPU");
}

TEST_F(CPUMenuViewTest, LoadAveragesStandTwoBlanksApart) {
    EXPECT_THAT(rows(panel(recorded()).cards[2]),
                ElementsAre(Pair("Load averages", "3.42  2.87  2.15"), Pair("Uptime", "3d 4h 4m")));
}

TEST_F(CPUMenuViewTest, LoadThatIsNoNumberIsZero) {
    CPUStats stats;
    stats.loadAvg = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), 0.5};
    EXPECT_EQ(rows(panel(stats).cards[1]).front().second, "0.00  0.00  0.50");
}

TEST_F(CPUMenuViewTest, HiddenGpuLeavesTheLoad) {
    hide("gpu", StatsModule::cpu);
    const MenuPanel shown = panel(recorded());
    EXPECT_THAT(outline(shown), ElementsAre("CPU", "Cores", "Load averages", "Processes"));
    EXPECT_THAT(shown.cards[2].content, SizeIs(2));
}

TEST_F(CPUMenuViewTest, HiddenLoadLeavesTheGpu) {
    hide("load", StatsModule::cpu);
    EXPECT_THAT(panel(recorded()).cards[2].content, SizeIs(1));
    EXPECT_EQ(at<BarRow>(panel(recorded()), 2, 0).label, "GPU");
}

TEST_F(CPUMenuViewTest, HiddenGpuAndLoadLeaveNoEmptyCard) {
    hide("gpu", StatsModule::cpu);
    hide("load", StatsModule::cpu);
    EXPECT_THAT(outline(panel(recorded())), ElementsAre("CPU", "Cores", "Processes"));
}

TEST_F(CPUMenuViewTest, ProcessesAreInPercentOfOneCore) {
    const ProcessCard card =
        at<ProcessCard>(panel(recorded(), {{301, "a name of words", 112.54}, {4, "idle", 0}}), 3, 0);
    EXPECT_EQ(card.title, "Processes");
    EXPECT_EQ(card.note, "1 core = 100%");
    EXPECT_EQ(card.rowCount, 5);
    EXPECT_THAT(card.processes,
                ElementsAre(TopProcess{301, "a name of words", 112.54}, TopProcess{4, "idle", 0}));
    EXPECT_EQ(card.format(112.54), "112.5%");
    EXPECT_EQ(card.format(0), "0.0%");
    EXPECT_EQ(card.format(std::numeric_limits<double>::quiet_NaN()), "0.0%");
}

TEST_F(CPUMenuViewTest, WithAllMetricsHiddenTheUsageRemains) {
    hideAll(StatsModule::cpu);
    EXPECT_THAT(outline(panel(recorded())), ElementsAre("CPU"));
}

TEST_F(CPUMenuViewTest, AsksForFiveBusyProcessesAtOnceAndEveryTwoSeconds) {
    const auto view = makeView(StatsModule::cpu);
    ASSERT_THAT(lister.calls, SizeIs(1));
    EXPECT_THAT(lister.calls[0].arguments, ElementsAre("-Aceo", "pcpu=,pid=,comm=", "-r"));
    EXPECT_THAT(at<ProcessCard>(view->panel(), 2, 0).processes, IsEmpty());
    lister.calls[0].completion(" 50.0 7 one\n 40.0 8 two\n");
    EXPECT_THAT(at<ProcessCard>(view->panel(), 2, 0).processes,
                ElementsAre(TopProcess{7, "one", 50}, TopProcess{8, "two", 40}));
    runLoop.advance(2);
    ASSERT_THAT(lister.calls, SizeIs(2));
    lister.calls[1].completion(" 9.0 1 a\n 8.0 2 b\n 7.0 3 c\n 6.0 4 d\n 5.0 5 e\n 4.0 6 f\n");
    EXPECT_THAT(at<ProcessCard>(view->panel(), 2, 0).processes, SizeIs(5));
}

TEST_F(CPUMenuViewTest, HiddenProcessesAreStillAskedFor) {
    hide("top", StatsModule::cpu);
    const auto view = makeView(StatsModule::cpu);
    EXPECT_THAT(outline(view->panel()), ElementsAre("CPU", "GPU"));
    for (std::size_t tick = 1; tick <= 3; ++tick) {
        ASSERT_THAT(lister.calls, SizeIs(tick));
        lister.calls.back().completion(std::nullopt);
        runLoop.advance(2);
    }
    EXPECT_THAT(lister.calls, SizeIs(4));
}

TEST_F(CPUMenuViewTest, ANewPanelStartsWithAnEmptyList) {
    auto view = makeView(StatsModule::cpu);
    lister.calls[0].completion(" 50.0 7 one\n");
    view = makeView(StatsModule::cpu);
    EXPECT_THAT(at<ProcessCard>(view->panel(), 2, 0).processes, IsEmpty());
}

}  // namespace
}  // namespace velmora
