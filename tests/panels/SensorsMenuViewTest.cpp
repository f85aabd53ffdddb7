#include "panels/SensorsMenuView.h"

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

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

class SensorsMenuViewTest : public PanelFixture {
protected:
    MenuPanel panel(const SensorsStats& stats, const CPUStats& cpu = {}) const {
        return sensorsPanel(stats, cpu, context(StatsModule::sensors));
    }
    std::vector<RingStat> rings(const SensorsStats& stats, const CPUStats& cpu = {}) const {
        return at<RingRow>(panel(stats, cpu), 0, 0).rings;
    }
    RingStat ringAt(double celsius) const {
        SensorsStats stats;
        stats.temperatures = {{TempCategory::cpu, celsius}};
        return rings(stats).at(0);
    }
    TempHistoryGraph graphOf(const SensorsStats& stats) const {
        return std::get<TempHistoryGraph>(at<Graph>(panel(stats), 1, 1).graph);
    }
    static SensorsStats oneReading(TempCategory category, double celsius) {
        SensorsStats stats;
        stats.temperatures = {{category, celsius}};
        return stats;
    }
    static ShortSeries& historyOf(SensorsStats& stats, TempCategory category) {
        return stats.temperatureHistories[indexOf(category)];
    }
    const SensorsStats& recorded() const { return recordedFigures().sensors; }
};

TEST_F(SensorsMenuViewTest, CardsStandInTheirOrder) {
    EXPECT_THAT(outline(panel(recorded())), ElementsAre("CPU temp", "Temperatures", "Fans"));
    EXPECT_EQ(panel(recorded()).name, "Sensors");
}

TEST_F(SensorsMenuViewTest, WithoutTemperaturesAndFansASingleCardSaysSo) {
    SensorsStats stats;
    stats.gpuUsage = 0.5;
    const MenuPanel shown = panel(stats);
    ASSERT_THAT(shown.cards, SizeIs(1));
    EXPECT_EQ(shown.cards[0].spacing, 6);
    EXPECT_EQ(shown.cards[0].verticalPadding, 9);
    EXPECT_THAT(shown.cards[0].content, SizeIs(1));
    EXPECT_EQ(at<EmptyState>(shown, 0, 0),
              (EmptyState{"thermometer.medium", std::string(l10n.string("sen.none"))}));
}

TEST_F(SensorsMenuViewTest, TheEmptyPanelKeepsItsFooter) {
    EXPECT_THAT(makeView(StatsModule::sensors)->panel().footer.shortcuts, SizeIs(1));
}

TEST_F(SensorsMenuViewTest, ThreeRingsStandInTheFirstCard) {
    const auto shown = rings(recorded());
    ASSERT_THAT(shown, SizeIs(3));
    EXPECT_NEAR(shown[0].fraction, (56.4 - 30) / 70, 1e-12);
    EXPECT_EQ(shown[0], (RingStat{shown[0].fraction, "56°", "CPU temp", Series::primary, 44, 4.5, 11}));
    EXPECT_EQ(shown[1], (RingStat{0.31, "31%", "GPU", Series::primary, 44, 4.5, 11}));
    EXPECT_EQ(shown[2], (RingStat{2140.0 / 5000, "2140", "Fans", Series::primary, 44, 4.5, 10}));
}

TEST_F(SensorsMenuViewTest, ThirtyDegreesAreAFractionOfZeroAndAHundredOne) {
    EXPECT_EQ(ringAt(30).fraction, 0);
    EXPECT_EQ(ringAt(100).fraction, 1);
    EXPECT_EQ(ringAt(65).fraction, 0.5);
    EXPECT_EQ(ringAt(-40).fraction, 0);
    EXPECT_EQ(ringAt(130).fraction, 1);
    EXPECT_EQ(ringAt(130).text, "130°");
}

TEST_F(SensorsMenuViewTest, FromSeventyDegreesOnTheRingIsOrangeAndFromEightyFiveOnRed) {
    EXPECT_EQ(ringAt(69.9).tint, Series::primary);
    EXPECT_EQ(ringAt(70).tint, Series::orange);
    EXPECT_EQ(ringAt(84.9).tint, Series::orange);
    EXPECT_EQ(ringAt(85).tint, Series::red);
}

TEST_F(SensorsMenuViewTest, ThresholdsAreOfTheTrueTemperatureNotOfItsText) {
    EXPECT_EQ(ringAt(84.9).text, "85°");
    EXPECT_EQ(ringAt(84.9).tint, Series::orange);
}

TEST_F(SensorsMenuViewTest, TheProcessorsOwnFigureStandsInForAMissingReading) {
    CPUStats cpu;
    cpu.temperature = 61;
    EXPECT_EQ(rings(oneReading(TempCategory::ssd, 40), cpu).at(0).text, "61°");
    EXPECT_EQ(rings(oneReading(TempCategory::cpu, 50), cpu).at(0).text, "50°");
}

TEST_F(SensorsMenuViewTest, WithoutAProcessorTemperatureItsRingIsLeftOut) {
    SensorsStats stats = recorded();
    stats.temperatures = {{TempCategory::ssd, 40}};
    const auto shown = rings(stats);
    ASSERT_THAT(shown, SizeIs(2));
    EXPECT_EQ(shown[0].caption, "GPU");
}

TEST_F(SensorsMenuViewTest, WithoutUsageTheGpuRingShowsItsTemperatureLikeTheFirst) {
    const RingStat ring = rings(oneReading(TempCategory::gpu, 86)).at(0);
    EXPECT_EQ(ring, (RingStat{0.8, "86°", "GPU", Series::red, 44, 4.5, 11}));
}

TEST_F(SensorsMenuViewTest, UsageOfTheGpuComesBeforeItsTemperature) {
    SensorsStats stats = oneReading(TempCategory::gpu, 86);
    stats.gpuUsage = 0.97;
    EXPECT_EQ(rings(stats).at(0), (RingStat{0.97, "97%", "GPU", Series::primary, 44, 4.5, 11}));
}

TEST_F(SensorsMenuViewTest, WithoutAnyGpuFigureItsRingIsLeftOut) {
    SensorsStats stats = oneReading(TempCategory::cpu, 50);
    stats.fans = {1000};
    const auto shown = rings(stats);
    ASSERT_THAT(shown, SizeIs(2));
    EXPECT_EQ(shown[1].caption, "Fans");
}

TEST_F(SensorsMenuViewTest, TheFanRingTakesTheFastestFan) {
    SensorsStats stats;
    stats.fans = {1200, 2500, 900};
    const RingStat ring = rings(stats).at(0);
    EXPECT_EQ(ring.fraction, 0.5);
    EXPECT_EQ(ring.text, "2500");
    EXPECT_EQ(ring.textSize, 10);
}

TEST_F(SensorsMenuViewTest, AFanAboveTheScaleHasAFullRingAndItsTrueSpeed) {
    SensorsStats stats;
    stats.fans = {6000};
    EXPECT_EQ(rings(stats).at(0).fraction, 1);
    EXPECT_EQ(rings(stats).at(0).text, "6000");
}

TEST_F(SensorsMenuViewTest, AFanThatStandsStillHasAnEmptyRing) {
    SensorsStats stats;
    stats.fans = {0};
    EXPECT_EQ(rings(stats).at(0).fraction, 0);
    EXPECT_EQ(rings(stats).at(0).text, "0");
}

TEST_F(SensorsMenuViewTest, TemperaturesWithoutFansLeaveOutRingAndCardOfTheFans) {
    SensorsStats stats = recorded();
    stats.fans.clear();
    EXPECT_THAT(outline(panel(stats)), ElementsAre("CPU temp", "Temperatures"));
    EXPECT_THAT(rings(stats), SizeIs(2));
}

TEST_F(SensorsMenuViewTest, WithoutAnyRingTheirCardIsLeftOut) {
    EXPECT_THAT(outline(panel(oneReading(TempCategory::battery, 30))), ElementsAre("Temperatures"));
}

TEST_F(SensorsMenuViewTest, TheTemperatureCardHasHeaderGraphHighestOfTheDayAndARowPerReading) {
    const MenuPanel shown = panel(recorded());
    EXPECT_EQ(at<CardHeader>(shown, 1, 0), (CardHeader{"Temperatures", "", ""}));
    EXPECT_THAT(rows(shown.cards[1]),
                ElementsAre(Pair("Max", "78.5 °C"), Pair("CPU", "56.4 °C"), Pair("GPU", "51.0 °C"),
                            Pair("SoC", "48.5 °C"), Pair("SSD", "41.9 °C"), Pair("Enclosure", "36.2 °C"),
                            Pair("Battery", "31.8 °C")));
}

TEST_F(SensorsMenuViewTest, RowsKeepTheOrderOfTheReadings) {
    SensorsStats stats;
    stats.temperatures = {{TempCategory::other, 20}, {TempCategory::cpu, 50}};
    EXPECT_THAT(rows(panel(stats).cards[1]),
                ElementsAre(Pair("Max", "—"), Pair("Other", "20.0 °C"), Pair("CPU", "50.0 °C")));
}

TEST_F(SensorsMenuViewTest, GraphAndRowsShareTheTintsOfTheCategories) {
    SensorsStats stats;
    for (const TempCategory category : kAllTempCategories) {
        stats.temperatures.push_back({category, 40});
        historyOf(stats, category).append(40);
    }
    struct Tint {
        QColor color;
        double opacity;
    };
    const std::vector<Tint> expected = {
        {Series::primary, 1}, {Series::secondary, 1}, {Series::tertiary, 1}, {Series::tertiary, 0.75},
        {Series::gray, 0.8},  {Series::gray, 1},      {Series::gray, 0.55}};
    const MenuPanel shown = panel(stats);
    const TempHistoryGraph graph = graphOf(stats);
    ASSERT_EQ(graph.series.size(), expected.size());
    for (std::size_t index = 0; index < expected.size(); ++index) {
        const QColor tint = graph.series[index].tint;
        EXPECT_EQ(tint.rgb(), expected[index].color.rgb()) << index;
        EXPECT_NEAR(tint.alphaF(), expected[index].opacity, 1e-4) << index;
        EXPECT_EQ(at<MetricRow>(shown, 1, 3 + index).tint, tint) << index;
    }
}

TEST_F(SensorsMenuViewTest, TheGraphReachesADegreeBeyondItsValues) {
    SensorsStats stats = oneReading(TempCategory::cpu, 50);
    for (const double celsius : {41.2, 55.7}) historyOf(stats, TempCategory::cpu).append(celsius);
    historyOf(stats, TempCategory::ssd).append(38.9);
    const TempHistoryGraph graph = graphOf(stats);
    EXPECT_EQ(graph.low, 37);
    EXPECT_EQ(graph.high, 57);
    EXPECT_EQ(graph.lowLabel, "37");
    EXPECT_EQ(graph.highLabel, "57");
    EXPECT_EQ(graph.height, 38);
    ASSERT_THAT(graph.series, SizeIs(2));
    EXPECT_THAT(graph.series[0].values, ElementsAre(41.2, 55.7));
    EXPECT_THAT(graph.series[1].values, ElementsAre(38.9));
}

TEST_F(SensorsMenuViewTest, TheGraphOfNoValuesReachesFromMinusOneToTwo) {
    SensorsStats stats = oneReading(TempCategory::cpu, 50);
    EXPECT_EQ(graphOf(stats).low, -1);
    EXPECT_EQ(graphOf(stats).high, 2);
    EXPECT_THAT(graphOf(stats).series, IsEmpty());
    EXPECT_EQ(graphOf(stats).lowLabel, "-1");
    EXPECT_EQ(graphOf(stats).highLabel, "2");
}

TEST_F(SensorsMenuViewTest, FrostIsBelowZeroInTheGraphToo) {
    SensorsStats stats = oneReading(TempCategory::enclosure, -5);
    for (const double celsius : {-12.5, -3.5}) historyOf(stats, TempCategory::enclosure).append(celsius);
    const MenuPanel shown = panel(stats);
    const auto graph = std::get<TempHistoryGraph>(at<Graph>(shown, 0, 1).graph);
    EXPECT_EQ(graph.low, -14);
    EXPECT_EQ(graph.high, -2);
    EXPECT_EQ(at<MetricRow>(shown, 0, 3).value, "-5.0 °C");
}

TEST_F(SensorsMenuViewTest, TheGraphHasNoHoverAndTellsAScreenReaderItsRange) {
    SensorsStats stats = oneReading(TempCategory::cpu, 50);
    for (const double celsius : {41.2, 55.7}) historyOf(stats, TempCategory::cpu).append(celsius);
    stats.maxToday = 78.5;
    const Graph graph = at<Graph>(panel(stats), 1, 1);
    EXPECT_FALSE(graph.hover);
    EXPECT_EQ(graph.name, "Temperatures");
    EXPECT_EQ(graph.value, "41.2 °C – 55.7 °C, Max 78.5 °C");
}

TEST_F(SensorsMenuViewTest, FansAreCountedAndNumberedFromOne) {
    EXPECT_EQ(at<CardHeader>(panel(recorded()), 2, 0), (CardHeader{"Fans", "", "2 fans"}));
    EXPECT_THAT(rows(panel(recorded()).cards[2]),
                ElementsAre(Pair("Fan 1", "2140 rpm"), Pair("Fan 2", "1985 rpm")));
}

TEST_F(SensorsMenuViewTest, HiddenTemperaturesLeaveRingsAndFans) {
    hide("temperatures", StatsModule::sensors);
    EXPECT_THAT(outline(panel(recorded())), ElementsAre("CPU temp", "Fans"));
}

TEST_F(SensorsMenuViewTest, HiddenFansLeaveTheirRing) {
    hide("fans", StatsModule::sensors);
    EXPECT_THAT(outline(panel(recorded())), ElementsAre("CPU temp", "Temperatures"));
    EXPECT_THAT(rings(recorded()), SizeIs(3));
}

TEST_F(SensorsMenuViewTest, FiguresThatAreNoNumbersGiveNoRingAndNoBound) {
    SensorsStats stats = oneReading(TempCategory::cpu, kNoNumber);
    stats.gpuUsage = kNoNumber;
    stats.fans = {kNoNumber};
    historyOf(stats, TempCategory::cpu).append(kNoNumber);
    historyOf(stats, TempCategory::cpu).append(40);
    const MenuPanel shown = panel(stats);
    EXPECT_THAT(outline(shown), ElementsAre("Temperatures", "Fans"));
    const auto graph = std::get<TempHistoryGraph>(at<Graph>(shown, 0, 1).graph);
    EXPECT_EQ(graph.low, 39);
    EXPECT_EQ(graph.high, 41);
    EXPECT_THAT(rows(shown.cards[0]), ElementsAre(Pair("Max", "—"), Pair("CPU", "—")));
    EXPECT_THAT(rows(shown.cards[1]), ElementsAre(Pair("Fan 1", "—")));
}

TEST_F(SensorsMenuViewTest, NeedsNeitherTimerNorProcesses) {
    const auto view = makeView(StatsModule::sensors);
    runLoop.advance(10);
    EXPECT_EQ(runLoop.timerCount(), 0u);
    EXPECT_THAT(lister.calls, IsEmpty());
    EXPECT_EQ(counters->walkCount, 0);
}

}  // namespace
}  // namespace velmora
