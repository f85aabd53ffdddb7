#include "core/StatsEngine.h"

#include "core/EngineHouse.h"
#include "core/SeriesPoints.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using enum StatsModule;

class StatsEngineTest : public testing::Test {
protected:
    /// Starts with these modules and lets the start's own posted task run.
    void start(const ModuleSet& enabled) {
        std::vector<StatsModule> modules;
        for (const StatsModule module : kAllModules) {
            if (enabled.contains(module)) modules.push_back(module);
        }
        house.settings.setEnabledModules(modules);
        house.engine->start();
        house.runLoop.runPosted();
    }
    /// What each tick of the next seconds samples.
    std::vector<ModuleSet> updatesDuring(double seconds) {
        std::vector<ModuleSet> updates;
        const Subscription watching = house.engine->snapshot().subscribe(
            [&](const StatsSnapshot& snapshot) { updates.push_back(snapshot.updated); });
        updates.clear();
        house.runLoop.advance(seconds);
        return updates;
    }

    EngineHouse house{{cpu, memory, network}};
    FakeSamplers& samplers = house.samplers;
};

// Before and at the start.

TEST_F(StatsEngineTest, ConstructionStartsAndPublishesNothing) {
    EXPECT_EQ(house.snapshot(), StatsSnapshot{});
    EXPECT_EQ(house.snapshot().timestamp, Date::distantPast());
    EXPECT_EQ(house.runLoop.timerCount(), 0U);
    house.runLoop.advance(60);
    EXPECT_EQ(samplers.cpu.sampleCount, 0);
}

TEST_F(StatsEngineTest, StartSamplesAllActiveModulesAtOnce) {
    start({cpu, memory, network});
    EXPECT_EQ(house.snapshot().updated, (ModuleSet{cpu, memory, network}));
    EXPECT_EQ(house.snapshot().timestamp, FakeClock::kStart);
    EXPECT_EQ(house.runLoop.timerCount(), 1U);
}

TEST_F(StatsEngineTest, StartRestartsOncePerSubscriptionAndOnceItself) {
    int published = 0;
    const Subscription watching =
        house.engine->snapshot().subscribe([&](const StatsSnapshot&) { ++published; });
    published = 0;
    house.engine->start();
    EXPECT_EQ(published, 3);  // Interval, intervals, and the start's own; the widgets' one is posted.
    house.runLoop.runPosted();
    EXPECT_EQ(published, 4);
}

TEST_F(StatsEngineTest, TimestampIsWhenTheTickBegan) {
    start({cpu});
    house.runLoop.advance(4);
    EXPECT_EQ(house.snapshot().timestamp, FakeClock::kStart + 4);
}

// The timer.

TEST_F(StatsEngineTest, ImmediateTickAfterARestartSamplesEveryActiveModuleWithIntervalZero) {
    start({memory, disk, network});
    house.runLoop.advance(4);
    samplers.memory.intervals.clear();
    samplers.disk.intervals.clear();
    samplers.network.intervals.clear();
    samplers.volumeIO.intervals.clear();
    house.settings.setSampleInterval(3);
    EXPECT_EQ(house.snapshot().updated, (ModuleSet{memory, disk, network}));
    EXPECT_THAT(samplers.memory.intervals, ElementsAre(0.0));
    EXPECT_THAT(samplers.disk.intervals, ElementsAre(0.0));
    EXPECT_THAT(samplers.volumeIO.intervals, ElementsAre(0.0));
    EXPECT_THAT(samplers.network.intervals, ElementsAre(0.0));
}

TEST_F(StatsEngineTest, PeriodIsTheSampleIntervalByDefault) {
    start({cpu});
    EXPECT_THAT(house.runLoop.timerSeconds(), ElementsAre(2.0));
}

TEST_F(StatsEngineTest, PeriodIsTheShortestIntervalOfTheActiveModules) {
    house.settings.setModuleIntervals({{cpu, 1.0}, {sensors, 0.75}});
    start({cpu, memory});
    EXPECT_THAT(house.runLoop.timerSeconds(), ElementsAre(1.0));
}

TEST_F(StatsEngineTest, PeriodIsNeverLongerThanTheSampleInterval) {
    house.settings.setModuleIntervals({{cpu, 30.0}});
    start({cpu});
    EXPECT_THAT(house.runLoop.timerSeconds(), ElementsAre(2.0));
}

TEST_F(StatsEngineTest, SampleIntervalOfAQuarterSecondGivesAPeriodOfHalfASecond) {
    house.settings.setSampleInterval(0.25);
    start({cpu});
    EXPECT_THAT(house.runLoop.timerSeconds(), ElementsAre(0.5));
    EXPECT_EQ(updatesDuring(2).size(), 4U);
}

TEST_F(StatsEngineTest, IntervalsOfNothingOrLessGiveAPeriodOfHalfASecond) {
    for (const double seconds : {0.0, -5.0, -1e300}) {
        EngineHouse odd(ModuleSet{cpu});
        odd.settings.setSampleInterval(seconds);
        odd.settings.setModuleIntervals({{cpu, seconds}});
        odd.engine->start();
        odd.runLoop.runPosted();
        EXPECT_THAT(odd.runLoop.timerSeconds(), ElementsAre(0.5)) << seconds;
    }
}

TEST_F(StatsEngineTest, SampleIntervalThatIsNotANumberGivesAPeriodOfHalfASecond) {
    house.settings.setSampleInterval(std::numeric_limits<double>::quiet_NaN());
    start({cpu});
    EXPECT_THAT(house.runLoop.timerSeconds(), ElementsAre(0.5));
}

TEST_F(StatsEngineTest, ModuleIntervalThatIsNotANumberLeavesThePeriod) {
    house.settings.setModuleIntervals({{cpu, std::numeric_limits<double>::quiet_NaN()}});
    start({cpu});
    EXPECT_THAT(house.runLoop.timerSeconds(), ElementsAre(2.0));
}

TEST_F(StatsEngineTest, HugeSampleIntervalStillSamplesAtTheStart) {
    house.settings.setSampleInterval(1e300);
    start({cpu});
    EXPECT_EQ(house.snapshot().updated, ModuleSet{cpu});
    EXPECT_THAT(updatesDuring(3600), IsEmpty());
}

TEST_F(StatsEngineTest, ModuleWithALongerIntervalIsDueOnEveryThirdFire) {
    house.settings.setModuleIntervals({{memory, 5.0}});
    start({cpu, memory});
    const ModuleSet both{cpu, memory};
    const ModuleSet alone{cpu};
    EXPECT_THAT(updatesDuring(12), ElementsAre(alone, alone, both, alone, alone, both));
    EXPECT_EQ(samplers.memory.intervals.back(), 6.0);
}

TEST_F(StatsEngineTest, TimerJitterWithinTheSlackKeepsAModuleDue) {
    start({memory});
    house.runLoop.advance(2);
    house.clock.advance(-0.04);
    const std::size_t before = samplers.memory.intervals.size();
    house.runLoop.advance(2);
    EXPECT_EQ(samplers.memory.intervals.size(), before + 1);
}

TEST_F(StatsEngineTest, TimerThatIsTooEarlyByMoreThanTheSlackFindsNothingDue) {
    start({memory});
    house.runLoop.advance(2);
    house.clock.advance(-0.06);
    EXPECT_THAT(updatesDuring(2), ElementsAre(ModuleSet{}));
}

TEST_F(StatsEngineTest, BatteryIsSampledEveryTenSecondsAtASampleIntervalOfTwo) {
    start({cpu, battery});
    const int before = samplers.battery.sampleCount;
    house.runLoop.advance(9);
    EXPECT_EQ(samplers.battery.sampleCount, before);
    house.runLoop.advance(1);
    EXPECT_EQ(samplers.battery.sampleCount, before + 1);
    house.runLoop.advance(20);
    EXPECT_EQ(samplers.battery.sampleCount, before + 3);
}

TEST_F(StatsEngineTest, OwnBatteryIntervalMayBeShorter) {
    house.settings.setModuleIntervals({{battery, 1.0}});
    start({battery});
    EXPECT_EQ(updatesDuring(5).size(), 5U);
}

TEST_F(StatsEngineTest, IntervalsGivenToSamplersAreTheRealTimes) {
    start({memory, disk, network});
    house.runLoop.advance(2);
    house.runLoop.stall(7);
    house.runLoop.advance(0);
    EXPECT_EQ(samplers.memory.intervals.back(), 7.0);
    EXPECT_EQ(samplers.disk.intervals.back(), 7.0);
    EXPECT_EQ(samplers.volumeIO.intervals.back(), 7.0);
    EXPECT_EQ(samplers.network.intervals.back(), 7.0);
}

// What is active.

TEST_F(StatsEngineTest, DisablingAllModulesLeavesTheTimerRunningWithEmptyUpdates) {
    start({});
    EXPECT_THAT(updatesDuring(6), ElementsAre(ModuleSet{}, ModuleSet{}, ModuleSet{}));
    EXPECT_EQ(house.snapshot().timestamp, FakeClock::kStart + 6);
}

TEST_F(StatsEngineTest, DisablingTheLastModuleOfARunningEngineOnlyEmptiesTheUpdates) {
    start({cpu, memory});
    house.settings.setEnabledModules({});
    EXPECT_EQ(house.runLoop.timerCount(), 1U);
    EXPECT_THAT(updatesDuring(4), ElementsAre(ModuleSet{}, ModuleSet{}));
    EXPECT_EQ(house.snapshot().timestamp, FakeClock::kStart + 4);
}

TEST_F(StatsEngineTest, DisabledModuleKeepsItsLastFigures) {
    samplers.memory.figures.used = 7;
    start({memory, cpu});
    house.settings.setEnabled(memory, false);
    samplers.memory.figures.used = 8;
    house.runLoop.advance(10);
    EXPECT_EQ(house.snapshot().memory.used, 7U);
    EXPECT_EQ(house.snapshot().updated, ModuleSet{cpu});
}

TEST_F(StatsEngineTest, EnablingAModuleDoesNotRestartTheTimer) {
    start({cpu});
    house.runLoop.advance(1);
    const int before = samplers.cpu.sampleCount;
    house.settings.setEnabled(memory, true);
    EXPECT_EQ(samplers.cpu.sampleCount, before);
    EXPECT_THAT(samplers.memory.intervals, IsEmpty());
    EXPECT_THAT(updatesDuring(1), ElementsAre(ModuleSet{cpu, memory}));
    EXPECT_THAT(samplers.memory.intervals, ElementsAre(0.0));
}

TEST_F(StatsEngineTest, ModuleThatIsEnabledAgainIsGivenTheTimeSinceItsLastSample) {
    start({cpu, memory});
    house.runLoop.advance(2);
    house.settings.setEnabled(memory, false);
    house.runLoop.advance(10);
    house.settings.setEnabled(memory, true);
    house.runLoop.advance(2);
    EXPECT_EQ(samplers.memory.intervals.back(), 12.0);
}

TEST_F(StatsEngineTest, ModuleThatIsEnabledAgainAfterARestartIsGivenIntervalZero) {
    start({cpu, memory});
    house.settings.setEnabled(memory, false);
    house.runLoop.advance(10);
    house.settings.setModuleIntervals({});
    house.settings.setEnabled(memory, true);
    samplers.memory.intervals.clear();
    house.runLoop.advance(2);
    EXPECT_THAT(samplers.memory.intervals, ElementsAre(0.0));
}

TEST_F(StatsEngineTest, ShorterIntervalOfANewlyEnabledModuleTakesEffectAtTheNextRestart) {
    house.settings.setModuleIntervals({{memory, 1.0}});
    start({cpu});
    house.settings.setEnabled(memory, true);
    EXPECT_THAT(house.runLoop.timerSeconds(), ElementsAre(2.0));
    house.settings.setSampleInterval(4);
    EXPECT_THAT(house.runLoop.timerSeconds(), ElementsAre(1.0));
}

TEST_F(StatsEngineTest, PlacedModuleIsSampledAlthoughItIsDisabled) {
    house.settings.setModuleIntervals({{disk, 1.0}});
    start({cpu});
    house.placed.set(ModuleSet{disk});
    house.runLoop.runPosted();
    EXPECT_EQ(house.snapshot().updated, (ModuleSet{cpu, disk}));
    EXPECT_THAT(house.runLoop.timerSeconds(), ElementsAre(1.0));
}

TEST_F(StatsEngineTest, ModuleThatIsNoLongerPlacedStops) {
    start({cpu});
    house.placed.set(ModuleSet{disk});
    house.runLoop.runPosted();
    house.placed.set(ModuleSet{});
    house.runLoop.runPosted();
    EXPECT_THAT(updatesDuring(2), ElementsAre(ModuleSet{cpu}));
}

// What restarts the timer.

TEST_F(StatsEngineTest, EqualSampleIntervalDoesNotRestart) {
    start({cpu});
    const int before = samplers.cpu.sampleCount;
    house.settings.setSampleInterval(2);
    EXPECT_EQ(samplers.cpu.sampleCount, before);
    house.settings.setSampleInterval(3);
    EXPECT_EQ(samplers.cpu.sampleCount, before + 1);
    EXPECT_THAT(house.runLoop.timerSeconds(), ElementsAre(3.0));
}

TEST_F(StatsEngineTest, EqualModuleIntervalsRestartToo) {
    start({cpu});
    const int before = samplers.cpu.sampleCount;
    house.settings.setModuleIntervals({});
    EXPECT_EQ(samplers.cpu.sampleCount, before + 1);
}

TEST_F(StatsEngineTest, PlacedModulesRestartAfterOneHopAndOnlyWhenTheyChange) {
    start({cpu});
    const int before = samplers.cpu.sampleCount;
    house.placed.set(ModuleSet{});
    EXPECT_EQ(house.runLoop.postedCount(), 0U);
    house.placed.set(ModuleSet{disk});
    EXPECT_EQ(samplers.cpu.sampleCount, before);
    EXPECT_EQ(house.runLoop.postedCount(), 1U);
    house.runLoop.runPosted();
    EXPECT_EQ(samplers.cpu.sampleCount, before + 1);
}

TEST_F(StatsEngineTest, RestartBeginsANewPeriod) {
    start({cpu});
    house.runLoop.advance(1.5);
    house.settings.setModuleIntervals({});
    const int before = samplers.cpu.sampleCount;
    house.runLoop.advance(1.5);
    EXPECT_EQ(samplers.cpu.sampleCount, before);
    house.runLoop.advance(0.5);
    EXPECT_EQ(samplers.cpu.sampleCount, before + 1);
}

TEST_F(StatsEngineTest, EndedEngineLeavesNothingRunning) {
    start({cpu, network});
    house.placed.set(ModuleSet{disk});
    samplers.icmpPing.answer(5);
    house.engine.reset();
    EXPECT_EQ(house.runLoop.timerCount(), 0U);
    EXPECT_EQ(house.placed.subscriberCount(), 0U);
    house.runLoop.advance(10);
    EXPECT_THAT(samplers.disk.intervals, IsEmpty());
}

// Shared reads.

TEST_F(StatsEngineTest, AcceleratorAndTemperaturesAreReadOnceForBothModules) {
    samplers.gpu.fraction = 0.25;
    samplers.temperature.readings = {{TempCategory::cpu, 50}};
    start({cpu, sensors});
    const int gpuBefore = samplers.gpu.sampleCount;
    const int groupsBefore = samplers.temperature.groupsCount;
    house.runLoop.advance(2);
    EXPECT_EQ(samplers.gpu.sampleCount, gpuBefore + 1);
    EXPECT_EQ(samplers.temperature.groupsCount, groupsBefore + 1);
    EXPECT_EQ(samplers.temperature.cpuTemperatureCount, 0);
    EXPECT_EQ(house.snapshot().cpu.gpuUsage, 0.25);
    EXPECT_EQ(house.snapshot().sensors.gpuUsage, 0.25);
    EXPECT_EQ(house.snapshot().cpu.temperature, 50.0);
    EXPECT_THAT(house.snapshot().sensors.temperatures,
                ElementsAre(TemperatureReading{TempCategory::cpu, 50}));
}

TEST_F(StatsEngineTest, ProcessorAloneReadsTheAcceleratorButNotTheTemperatures) {
    samplers.temperature.cpu = 48;
    start({cpu});
    EXPECT_GT(samplers.gpu.sampleCount, 0);
    EXPECT_EQ(samplers.temperature.groupsCount, 0);
    EXPECT_EQ(house.snapshot().cpu.temperature, 48.0);
}

TEST_F(StatsEngineTest, ProcessorWithoutSensorsDueDoesNotUseEarlierTemperatures) {
    house.settings.setModuleIntervals({{sensors, 60.0}});
    samplers.temperature.readings = {{TempCategory::cpu, 50}};
    samplers.temperature.cpu = 55;
    start({cpu, sensors});
    EXPECT_EQ(house.snapshot().cpu.temperature, 50.0);
    house.runLoop.advance(2);
    EXPECT_EQ(house.snapshot().cpu.temperature, 55.0);
}

TEST_F(StatsEngineTest, OtherModulesReadNeitherAcceleratorNorTemperatures) {
    start({memory, disk, network, battery});
    EXPECT_EQ(samplers.gpu.sampleCount, 0);
    EXPECT_EQ(samplers.temperature.groupsCount, 0);
}

TEST_F(StatsEngineTest, TemperaturesWithoutAProcessorsSendTheProcessorToItsOwnSensor) {
    samplers.temperature.readings = {{TempCategory::ssd, 38}};
    samplers.temperature.cpu = 52;
    start({cpu, sensors});
    EXPECT_EQ(house.snapshot().cpu.temperature, 52.0);
    EXPECT_EQ(house.snapshot().sensors.primaryTemperature(), 38.0);
}

// The order within a tick.

TEST_F(StatsEngineTest, ModulesAreSampledInTheirOrder) {
    // Each of these modules stores something of its own at its first sample.
    samplers.fan.rpm = {1100};
    start(ModuleSet::all());
    std::vector<std::string> areas;
    for (const FakeDefaults::Write& write : house.defaults.writes) {
        const std::string area = write.key.substr(0, write.key.find('.'));
        if (area != write.key && std::ranges::find(areas, area) == areas.end()) areas.push_back(area);
    }
    EXPECT_THAT(areas, ElementsAre("disk", "net", "sen", "bat"));
}

TEST_F(StatsEngineTest, OneReadingOfTheClockServesTheWholeTick) {
    struct HastyClock final : Clock {
        Date now() const override {
            ++readings;
            return FakeClock::kStart + 100.0 * readings;
        }
        mutable int readings = 0;
    };
    house.settings.setEnabledModules({kAllModules.begin(), kAllModules.end()});
    const HastyClock clock;
    StatsEngine engine(clock, house.runLoop, house.defaults, house.settings, house.display, house.improve,
                       house.placed, samplers.viewWithoutProbes());
    engine.tick();
    clock.readings = 9;
    engine.tick();
    EXPECT_EQ(clock.readings, 10);
    EXPECT_EQ(engine.snapshot().get().updated, ModuleSet::all());
    EXPECT_EQ(engine.snapshot().get().timestamp, FakeClock::kStart + 1000);
}

// Publishing.

TEST_F(StatsEngineTest, EveryModuleReachesTheSnapshot) {
    samplers.cpu.figures.usage = 0.5;
    samplers.memory.figures.used = 7;
    samplers.disk.figures.iops = 3;
    samplers.network.rates.downPerSec = 9;
    samplers.fan.rpm = {1100};
    samplers.battery.figures.percent = 42;
    start(ModuleSet::all());
    EXPECT_EQ(house.snapshot().updated, ModuleSet::all());
    EXPECT_EQ(house.snapshot().cpu.usage, 0.5);
    EXPECT_EQ(house.snapshot().memory.used, 7U);
    EXPECT_EQ(house.snapshot().disk.iops, 3);
    EXPECT_EQ(house.snapshot().network.downPerSec, 9);
    EXPECT_THAT(house.snapshot().sensors.fans, ElementsAre(1100.0));
    EXPECT_EQ(house.snapshot().battery.percent, 42);
}

TEST_F(StatsEngineTest, SubscribersRunOnceInsideTheTick) {
    start({cpu});
    int published = 0;
    const Subscription watching =
        house.engine->snapshot().subscribe([&](const StatsSnapshot&) { ++published; });
    published = 0;
    house.engine->tick();
    EXPECT_EQ(published, 1);
}

TEST_F(StatsEngineTest, SnapshotThatSomeoneHoldsDoesNotChange) {
    samplers.cpu.figures.usage = 0.5;
    start({cpu});
    const StatsSnapshot held = house.snapshot();
    const StatsSnapshot copy = held;
    samplers.cpu.figures.usage = 0.9;
    house.runLoop.advance(20);
    EXPECT_EQ(held, copy);
    EXPECT_NE(house.snapshot(), held);
}

TEST_F(StatsEngineTest, SubscriberMayChangeASettingInsideTheTick) {
    start({cpu});
    bool changed = false;
    const Subscription watching = house.engine->snapshot().subscribe([&](const StatsSnapshot&) {
        if (!changed && house.runLoop.elapsed() > 0) {
            changed = true;
            house.settings.setSampleInterval(5);
        }
    });
    house.runLoop.advance(2);
    EXPECT_THAT(house.runLoop.timerSeconds(), ElementsAre(5.0));
    EXPECT_EQ(house.snapshot().cpu.history.size(), static_cast<std::size_t>(samplers.cpu.sampleCount));
}

TEST_F(StatsEngineTest, ShortSeriesHoldTheLastSixtySamples) {
    start({cpu, memory, disk, network, sensors});
    house.runLoop.advance(200);
    EXPECT_EQ(house.snapshot().cpu.history.size(), 60U);
    EXPECT_EQ(house.snapshot().memory.history.size(), 60U);
    EXPECT_EQ(house.snapshot().disk.activityHistory.size(), 60U);
    EXPECT_EQ(house.snapshot().network.downHistory.size(), 60U);
    EXPECT_EQ(house.snapshot().sensors.history.size(), 60U);
}

// Latency, through the whole engine.

TEST_F(StatsEngineTest, ProbesFlipToTheFallbackAfterThreeFailuresInARow) {
    start({network});
    int answered = 0;
    while (house.runLoop.elapsed() < 60) {
        house.runLoop.advance(2);
        while (samplers.icmpPing.answer(std::nullopt)) ++answered;
        while (samplers.measurePing.answer(25)) {
        }
    }
    EXPECT_EQ(answered, 3);
    EXPECT_GT(samplers.measurePing.probeCount, 5);
    EXPECT_EQ(house.snapshot().network.pingMs, 25.0);
    EXPECT_EQ(house.snapshot().network.lossPct, std::nullopt);
}

TEST_F(StatsEngineTest, NetworkIntervalLongerThanFiveSecondsIsTheProbesPeriod) {
    house.settings.setModuleIntervals({{network, 20.0}});
    start({network});
    const int before = samplers.icmpPing.probeCount;
    house.runLoop.advance(40);
    EXPECT_EQ(samplers.icmpPing.probeCount, before + 2);
}

// Restored state.

TEST_F(StatsEngineTest, RestartOfTheProgramContinuesTheDayAndTheBatterysSeries) {
    samplers.network.rates.totalDown = 1000;
    samplers.battery.figures.percent = 80;
    start({network, battery});
    samplers.network.rates.totalDown = 1600;
    house.runLoop.advance(2);
    house.engine = std::make_unique<StatsEngine>(house.clock, house.runLoop, house.defaults, house.settings,
                                                 house.display, house.improve, house.placed, samplers.view());
    house.engine->start();
    EXPECT_EQ(house.snapshot().network.totalToday, 600U);
    EXPECT_EQ(house.snapshot().battery.percentLong.size(), 288U);
    EXPECT_THAT(points(house.snapshot().battery.history).size(),
                3U);  // Not kept: one per restart of the timer.
}

TEST_F(StatsEngineTest, TimeAsleepBecomesGapPointsOfTheBattery) {
    samplers.battery.figures.percent = 80;
    samplers.battery.figures.isPluggedIn = true;
    start({battery});
    house.runLoop.stall(3600);
    house.runLoop.advance(0);
    const BatteryStats& stats = house.snapshot().battery;
    ASSERT_EQ(stats.pluggedLong.size(), 288U);
    const std::vector<double> plugged = points(stats.pluggedLong);
    EXPECT_THAT(std::vector<double>(plugged.end() - 13, plugged.end()),
                ElementsAre(1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1));
}

}  // namespace
}  // namespace velmora
