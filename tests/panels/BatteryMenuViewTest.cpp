#include "panels/BatteryMenuView.h"

#include "panels/PanelFixture.h"
#include "panels/kit/Series.h"

#include <gmock/gmock.h>

#include <limits>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

using List = std::vector<TopProcess>;

class BatteryMenuViewTest : public PanelFixture {
protected:
    MenuPanel panel(const BatteryStats& stats, const std::optional<List>& energyTop = List()) const {
        return batteryPanel(stats, context(StatsModule::battery), energyTop);
    }
    std::vector<std::pair<std::string, std::string>> details(const BatteryStats& stats) const {
        return rows(panel(stats).cards.at(1));
    }
    /// A battery of which nothing but the charge is known.
    static BatteryStats plain() {
        BatteryStats stats;
        stats.present = true;
        stats.percent = 50;
        return stats;
    }
    RingStat chargeRing(int percent) const {
        BatteryStats stats = plain();
        stats.percent = percent;
        return at<RingRow>(panel(stats), 0, 0).rings.at(0);
    }
    void showBattery() {
        StatsSnapshot next;
        next.battery = plain();
        snapshot.set(next);
    }
    const BatteryStats& recorded() const { return recordedFigures().battery; }
};

TEST_F(BatteryMenuViewTest, CardsStandInTheirOrder) {
    EXPECT_THAT(outline(panel(recorded())),
                ElementsAre("Battery", "Power source", "Health", "Peripherals", "Energy use"));
    EXPECT_EQ(panel(recorded()).name, "Battery");
}

TEST_F(BatteryMenuViewTest, WithoutABatteryASingleCardSaysSo) {
    BatteryStats stats = recorded();
    stats.present = false;
    const MenuPanel shown = panel(stats);
    ASSERT_THAT(shown.cards, SizeIs(1));
    EXPECT_EQ(shown.cards[0].spacing, 6);
    EXPECT_EQ(shown.cards[0].verticalPadding, 9);
    EXPECT_EQ(at<EmptyState>(shown, 0, 0), (EmptyState{"battery.75percent", "No battery detected."}));
}

TEST_F(BatteryMenuViewTest, TheEmptyPanelKeepsItsFooter) {
    EXPECT_THAT(makeView(StatsModule::battery)->panel().footer.shortcuts, SizeIs(1));
}

TEST_F(BatteryMenuViewTest, ChargeAndHealthAreRings) {
    EXPECT_THAT(at<RingRow>(panel(recorded()), 0, 0).rings,
                ElementsAre(RingStat{0.8, "80%", "Battery", Series::primary, 46, 5, 11},
                            RingStat{0.91, "91%", "Health", Series::primary, 46, 5, 11}));
}

TEST_F(BatteryMenuViewTest, WithoutHealthItsRingIsLeftOut) {
    EXPECT_THAT(at<RingRow>(panel(plain()), 0, 0).rings, SizeIs(1));
}

TEST_F(BatteryMenuViewTest, HealthAboveTheWholeReadsAHundredPercent) {
    BatteryStats stats = plain();
    stats.health = 1.04;
    EXPECT_EQ(at<RingRow>(panel(stats), 0, 0).rings.at(1).text, "100%");
}

TEST_F(BatteryMenuViewTest, TwentyPercentIsRedAndTwentyOneIsNot) {
    EXPECT_EQ(chargeRing(20).tint, Series::red);
    EXPECT_EQ(chargeRing(21).tint, Series::primary);
    EXPECT_EQ(chargeRing(0).tint, Series::red);
}

TEST_F(BatteryMenuViewTest, EveryPercentageReadsAsItIs) {
    for (int percent = 0; percent <= 100; ++percent) {
        EXPECT_EQ(chargeRing(percent).text, formatText("%d%%", {percent}));
        EXPECT_NEAR(chargeRing(percent).fraction, 0.01 * percent, 1e-12);
    }
    EXPECT_EQ(chargeRing(250).text, "100%");
    EXPECT_EQ(chargeRing(-1).text, "0%");
}

TEST_F(BatteryMenuViewTest, TheGraphHasLevelsAndTheirSource) {
    const auto graph = std::get<BatteryHistoryGraph>(at<Graph>(panel(recorded()), 0, 1).graph);
    EXPECT_EQ(graph.height, 26);
    EXPECT_THAT(graph.levels, testing::ElementsAreArray(recorded().history.values()));
    EXPECT_EQ(graph.plugged,
              std::vector<bool>(recorded().pluggedHistory.begin(), recorded().pluggedHistory.end()));
}

TEST_F(BatteryMenuViewTest, HoverTellsLevelAndSourceOfTheSlot) {
    BatteryStats stats = plain();
    stats.history.append(0.5);
    stats.history.append(0.52);
    stats.pluggedHistory.append(false);
    stats.pluggedHistory.append(true);
    settings.setInterval(30, StatsModule::battery);
    const auto hover = at<Graph>(panel(stats), 0, 1).hover;
    ASSERT_TRUE(hover);
    EXPECT_EQ(hover->interval, 30);
    EXPECT_THAT(hover->rows(59), ElementsAre(HoverChipRow{std::nullopt, "Battery", "52%"},
                                             HoverChipRow{std::nullopt, "Power source", "Power adapter"}));
    EXPECT_THAT(hover->rows(58), ElementsAre(HoverChipRow{std::nullopt, "Battery", "50%"},
                                             HoverChipRow{std::nullopt, "Power source", "Battery"}));
    EXPECT_THAT(hover->rows(57), IsEmpty());
}

TEST_F(BatteryMenuViewTest, ALevelWithoutASourceCountsAsUnplugged) {
    BatteryStats stats = plain();
    stats.history.append(0.5);
    EXPECT_EQ(at<Graph>(panel(stats), 0, 1).hover->rows(59).at(1).value, "Battery");
}

TEST_F(BatteryMenuViewTest, TheGraphTellsAScreenReaderChargeAndSource) {
    const Graph graph = at<Graph>(panel(recorded()), 0, 1);
    EXPECT_EQ(graph.name, "Battery");
    EXPECT_EQ(graph.value, "80%, Power adapter");
}

TEST_F(BatteryMenuViewTest, ChargingShowsItsStateAndTheTimeUntilFull) {
    EXPECT_THAT(details(recorded()),
                ElementsAre(Pair("Power source", "Power adapter"), Pair("State", "Charging"),
                            Pair("Until full", "0:47"), Pair("Low Power Mode", "Off")));
}

TEST_F(BatteryMenuViewTest, OnBatteryTheTimeLeftShowsAndNoState) {
    BatteryStats stats = plain();
    stats.timeRemainingMinutes = 125;
    stats.lowPowerMode = true;
    EXPECT_THAT(details(stats), ElementsAre(Pair("Power source", "Battery"), Pair("Time remaining", "2:05"),
                                            Pair("Low Power Mode", "On")));
}

TEST_F(BatteryMenuViewTest, WithoutATimeItsRowIsLeftOut) {
    EXPECT_THAT(details(plain()),
                ElementsAre(Pair("Power source", "Battery"), Pair("Low Power Mode", "Off")));
    BatteryStats stats = plain();
    stats.timeRemainingMinutes = -1;
    EXPECT_THAT(details(stats), SizeIs(2));
    stats.timeRemainingMinutes = 0;
    EXPECT_EQ(details(stats)[1], std::pair(std::string("Time remaining"), std::string("0:00")));
}

TEST_F(BatteryMenuViewTest, HealthCardHasCyclesHealthAndTemperature) {
    EXPECT_EQ(at<CardHeader>(panel(recorded()), 2, 0), (CardHeader{"Health", "", ""}));
    EXPECT_THAT(rows(panel(recorded()).cards[2]),
                ElementsAre(Pair("Cycle count", "212"), Pair("Battery health", "91%"),
                            Pair("Temperature", "31.8 °C")));
}

TEST_F(BatteryMenuViewTest, AMissingFigureLosesItsRowAndTheLastOneTheCard) {
    BatteryStats stats = plain();
    stats.cycleCount = 3;
    EXPECT_THAT(rows(panel(stats).cards[2]), ElementsAre(Pair("Cycle count", "3")));
    stats.cycleCount.reset();
    EXPECT_THAT(outline(panel(stats)), ElementsAre("Battery", "Power source", "Energy use"));
}

TEST_F(BatteryMenuViewTest, EachMetricHidesItsRowAndTheLastOneTheCard) {
    hide("cycles", StatsModule::battery);
    EXPECT_THAT(rows(panel(recorded()).cards[2]),
                ElementsAre(Pair("Battery health", "91%"), Pair("Temperature", "31.8 °C")));
    hide("health", StatsModule::battery);
    EXPECT_THAT(rows(panel(recorded()).cards[2]), ElementsAre(Pair("Temperature", "31.8 °C")));
    hide("temperature", StatsModule::battery);
    EXPECT_THAT(outline(panel(recorded())),
                ElementsAre("Battery", "Power source", "Peripherals", "Energy use"));
}

TEST_F(BatteryMenuViewTest, HiddenHealthKeepsItsRing) {
    hide("health", StatsModule::battery);
    EXPECT_THAT(at<RingRow>(panel(recorded()), 0, 0).rings, SizeIs(2));
}

TEST_F(BatteryMenuViewTest, EachPeripheralHasARow) {
    EXPECT_EQ(at<CardHeader>(panel(recorded()), 3, 0), (CardHeader{"Peripherals", "", ""}));
    EXPECT_THAT(rows(panel(recorded()).cards[3]),
                ElementsAre(Pair("Wireless Mouse", "64%"), Pair("Keyboard", "18%"), Pair("Headset", "92%")));
}

TEST_F(BatteryMenuViewTest, NamesOfPeripheralsPassWholeWhateverTheyHold) {
    BatteryStats stats = plain();
    stats.peripherals = {{std::string(200, 'x'), 1}, {"سماعة", 2}, {"🖱 100%d", 3}, {"", -4}};
    EXPECT_THAT(rows(panel(stats).cards.at(2)),
                ElementsAre(Pair(std::string(200, 'x'), "1%"), Pair("سماعة", "2%"), Pair("🖱 100%d", "3%"),
                            Pair("", "-4%")));
}

TEST_F(BatteryMenuViewTest, WithoutPeripheralsOrHiddenTheyHaveNoCard) {
    BatteryStats stats = recorded();
    stats.peripherals.clear();
    EXPECT_THAT(outline(panel(stats)), ElementsAre("Battery", "Power source", "Health", "Energy use"));
    hide("peripherals", StatsModule::battery);
    EXPECT_THAT(outline(panel(recorded())), ElementsAre("Battery", "Power source", "Health", "Energy use"));
}

TEST_F(BatteryMenuViewTest, PowerIsInWattsFromOneWattOn) {
    const ProcessCard card = at<ProcessCard>(panel(plain(), List{{7, "one", 0.5}}), 2, 0);
    EXPECT_EQ(card.title, "Energy use");
    EXPECT_EQ(card.note, "Avg. power");
    EXPECT_EQ(card.rowCount, 5);
    EXPECT_THAT(card.processes, ElementsAre(TopProcess{7, "one", 0.5}));
    EXPECT_EQ(card.format(0.5), "500 mW");
    EXPECT_EQ(card.format(1.0), "1.0 W");
    EXPECT_EQ(card.format(12.34), "12.3 W");
    EXPECT_EQ(card.format(0.01), "10 mW");
    EXPECT_EQ(card.format(-3), "0 mW");
    EXPECT_EQ(card.format(std::numeric_limits<double>::infinity()), "0 mW");
}

TEST_F(BatteryMenuViewTest, WithoutSupportOrHiddenThereIsNoEnergyCard) {
    EXPECT_THAT(outline(panel(plain(), std::nullopt)), ElementsAre("Battery", "Power source"));
    hide("energy", StatsModule::battery);
    EXPECT_THAT(outline(panel(plain())), ElementsAre("Battery", "Power source"));
}

TEST_F(BatteryMenuViewTest, SamplesPowerAtOnceAndEveryTwoSeconds) {
    showBattery();
    counters->processes[7] = ProcessCounters{0, 0, 0};
    counters->names[7] = "one";
    const auto view = makeView(StatsModule::battery);
    runWork();
    EXPECT_THAT(at<ProcessCard>(view->panel(), 2, 0).processes, IsEmpty());
    counters->processes[7] = ProcessCounters{0, 0, 1'400'000'000};
    advance(0.7);
    const List top = at<ProcessCard>(view->panel(), 2, 0).processes;
    ASSERT_THAT(top, SizeIs(1));
    EXPECT_NEAR(top[0].value, 2.0, 1e-6);
    EXPECT_EQ(counters->walkCount, 2);
    advance(1.3);
    EXPECT_EQ(counters->walkCount, 3);
}

TEST_F(BatteryMenuViewTest, HiddenEnergySamplesNothing) {
    showBattery();
    hide("energy", StatsModule::battery);
    const auto view = makeView(StatsModule::battery);
    advance(6);
    EXPECT_THAT(outline(view->panel()), ElementsAre("Battery", "Power source"));
    EXPECT_EQ(counters->walkCount, 0);
    EXPECT_EQ(counters->energyQuestions, 0);
}

TEST_F(BatteryMenuViewTest, EnergyThatIsHiddenWhileThePanelIsOpenIsSampledNoMore) {
    showBattery();
    const auto view = makeView(StatsModule::battery);
    advance(0.7);
    ASSERT_EQ(counters->walkCount, 2);
    hide("energy", StatsModule::battery);
    advance(6);
    EXPECT_EQ(counters->walkCount, 2);
    settings.setMetric("energy", true, StatsModule::battery);
    advance(2);
    EXPECT_EQ(counters->walkCount, 3);
}

TEST_F(BatteryMenuViewTest, AMachineThatTellsNoEnergyHasNoCardAndNoWalks) {
    showBattery();
    counters->energy.reset();
    const auto view = makeView(StatsModule::battery);
    advance(6);
    EXPECT_THAT(outline(view->panel()), ElementsAre("Battery", "Power source"));
    EXPECT_EQ(counters->walkCount, 0);
    EXPECT_EQ(counters->energyQuestions, 1) << "found out once";
}

TEST_F(BatteryMenuViewTest, APassThatEndsAfterThePanelDoesNothing) {
    auto view = makeView(StatsModule::battery);
    workQueue.runAll();
    view.reset();
    runLoop.advance(10);
    workQueue.runAll();
    EXPECT_EQ(counters->walkCount, 1);
}

}  // namespace
}  // namespace velmora
