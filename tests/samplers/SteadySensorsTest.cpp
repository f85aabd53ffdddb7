#include "fakes/AllocationCounter.h"
#include "fakes/FakeBatterySource.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeSensorSources.h"
#include "samplers/BatterySampler.h"
#include "samplers/FanSampler.h"
#include "samplers/TemperatureSampler.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

template <typename Work>
std::size_t allocationsOfHundred(Work work) {
    work();
    const std::size_t before = allocationCount();
    for (int tick = 0; tick < 100; ++tick) work();
    return allocationCount() - before;
}

TEST(SteadySensorsTest, BatterySampleTakesNothingFromTheHeap) {
    FakeBatterySource source;
    source.sources = {{.isInternalBattery = true, .currentCapacity = 5, .maxCapacity = 9}};
    source.smart = SmartBattery{.cycleCount = 7};
    source.services = {{40, "A mouse with a name that is quite long"}, {50, "Keyboard"}};
    FakeClock clock;
    BatterySampler sampler(source, clock);
    BatteryStats stats;
    EXPECT_EQ(allocationsOfHundred([&] { sampler.sample(stats); }), 0U);
}

TEST(SteadySensorsTest, TemperaturesTakeNothingFromTheHeap) {
    FakeThermalSensorSource source;
    source.list = {{"CPU tdie coretemp Package id 0", 50}, {"SSD nvme0", 40}, {"tdev acpitz", 30}};
    source.scopes.reserve(1000);
    TemperatureSampler sampler(source);
    std::vector<TemperatureReading> readings;
    EXPECT_EQ(allocationsOfHundred([&] {
                  sampler.temperatureGroups(readings);
                  sampler.cpuTemperature();
              }),
              0U);
}

TEST(SteadySensorsTest, FanSpeedsTakeNothingFromTheHeap) {
    FakeFanSource source;
    source.speeds = {1000.0, std::nullopt, 1200.0};
    FanSampler sampler(source);
    std::vector<double> rpm;
    EXPECT_EQ(allocationsOfHundred([&] { sampler.speeds(rpm); }), 0U);
}

}  // namespace
}  // namespace velmora
