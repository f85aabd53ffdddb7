#include "fakes/FakeClock.h"
#include "fakes/FakeNetworkSources.h"
#include "fakes/FakePowerServices.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeWorkQueue.h"
#include "platform/linux/files/SystemTree.h"
#include "platform/linux/power/LinuxBatterySource.h"
#include "platform/linux/sensors/LinuxFanSource.h"
#include "platform/linux/sensors/LinuxThermalSensorSource.h"
#include "samplers/BatterySampler.h"
#include "samplers/FanSampler.h"
#include "samplers/TemperatureSampler.h"

#include <gtest/gtest.h>

#include <memory>
#include <string_view>

// Whole machines: batteries, temperatures and fans over captured trees. Each expectation follows by hand from
// what the tree's attributes say.

namespace velmora {
namespace {

constexpr double kNoPatience = 0;

class SensorMachinesTest : public testing::Test {
protected:
    /// Also lets everything slow be read once.
    void start(std::string_view captured) {
        tree.show(captured);
        const SystemRoot root = tree.root();
        battery = std::make_unique<LinuxBatterySource>(root, queue, runLoop, monotonic, devices, profiles,
                                                       kNoPatience);
        slow = makeSlowSensorReading(root, queue, runLoop, monotonic, kNoPatience);
        thermal = std::make_unique<LinuxThermalSensorSource>(root, slow, monotonic);
        fans = std::make_unique<LinuxFanSource>(slow);
        batterySampler = std::make_unique<BatterySampler>(*battery, clock);
        temperatureSampler = std::make_unique<TemperatureSampler>(*thermal);
        fanSampler = std::make_unique<FanSampler>(*fans);
        sampleBattery();
        groups();
        queue.runAll();
        monotonic.now += 2;
    }
    BatteryStats sampleBattery() {
        BatteryStats stats;
        batterySampler->sample(stats);
        return stats;
    }
    std::vector<TemperatureReading> groups() {
        std::vector<TemperatureReading> readings;
        temperatureSampler->temperatureGroups(readings);
        return readings;
    }
    void expectGroups(const std::vector<TemperatureReading>& expected) {
        const auto readings = groups();
        ASSERT_EQ(readings.size(), expected.size());
        for (std::size_t index = 0; index < expected.size(); ++index) {
            EXPECT_EQ(readings[index].category, expected[index].category) << index;
            EXPECT_NEAR(readings[index].celsius, expected[index].celsius, 1e-9) << index;
        }
    }
    std::vector<double> speeds() {
        std::vector<double> rpm;
        fanSampler->speeds(rpm);
        return rpm;
    }

    SystemTree tree;
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeWorkQueue queue;
    FakeMonotonicClock monotonic;
    FakePowerDeviceService devices;
    FakePowerProfileService profiles;
    std::unique_ptr<LinuxBatterySource> battery;
    std::shared_ptr<SlowSensorReading> slow;
    std::unique_ptr<LinuxThermalSensorSource> thermal;
    std::unique_ptr<LinuxFanSource> fans;
    std::unique_ptr<BatterySampler> batterySampler;
    std::unique_ptr<TemperatureSampler> temperatureSampler;
    std::unique_ptr<FanSampler> fanSampler;
};

TEST_F(SensorMachinesTest, TwoBatteryLaptopAddsItsBatteriesUp) {
    start("two-battery-laptop");
    const BatteryStats stats = sampleBattery();
    EXPECT_TRUE(stats.present);
    EXPECT_EQ(stats.percent, 40);  // 16 + 8 of 20 + 40 Wh.
    EXPECT_FALSE(stats.isCharging);
    EXPECT_FALSE(stats.isPluggedIn);
    EXPECT_EQ(stats.timeRemainingMinutes, 130);  // 24 Wh at 11 W.
    EXPECT_EQ(stats.cycleCount, 310);
    EXPECT_NEAR(*stats.health, 60.0 / 72, 1e-9);
    EXPECT_NEAR(*stats.powerWatts, -11, 1e-9);
    EXPECT_EQ(stats.temperature, std::nullopt);
    EXPECT_TRUE(stats.lowPowerMode);  // By the firmware's profile.
}

TEST_F(SensorMachinesTest, TwoBatteryLaptopShowsItsMouseOnceItHasBeenAsked) {
    start("two-battery-laptop");
    sampleBattery();
    queue.runAll();
    EXPECT_EQ(sampleBattery().peripherals, (std::vector<PeripheralBattery>{{"Wireless Mouse M1", 65}}));
}

TEST_F(SensorMachinesTest, TwoBatteryLaptopTemperaturesAndFans) {
    start("two-battery-laptop");
    expectGroups({{TempCategory::cpu, 52},
                  {TempCategory::soc, 43.5},
                  {TempCategory::ssd, 38.85},
                  {TempCategory::enclosure, (45 + 41) / 2.0}});
    EXPECT_EQ(temperatureSampler->cpuTemperature(), 52.0);
    EXPECT_EQ(speeds(), std::vector<double>{2843});
}

TEST_F(SensorMachinesTest, ZenDesktopHasNoBattery) {
    start("zen-desktop");
    EXPECT_EQ(sampleBattery(), BatteryStats{});
}

TEST_F(SensorMachinesTest, ZenDesktopTemperaturesAndFans) {
    start("zen-desktop");
    expectGroups({{TempCategory::cpu, 58.5},
                  {TempCategory::gpu, 48},
                  {TempCategory::ssd, (44.85 + 40.85 + 33) / 3},
                  {TempCategory::enclosure, 35}});
    EXPECT_EQ(temperatureSampler->cpuTemperature(), 58.5);
    EXPECT_EQ(speeds(), (std::vector<double>{0, 1180, 640}));
}

TEST_F(SensorMachinesTest, HybridGraphicsLaptopCharges) {
    start("hybrid-graphics-laptop");
    const BatteryStats stats = sampleBattery();
    EXPECT_TRUE(stats.present);
    EXPECT_EQ(stats.percent, 50);
    EXPECT_TRUE(stats.isCharging);
    EXPECT_TRUE(stats.isPluggedIn);
    EXPECT_EQ(stats.timeRemainingMinutes, 105);  // 3.5 Ah with 2 A.
    EXPECT_EQ(stats.cycleCount, std::nullopt);   // Nobody counts.
    EXPECT_NEAR(*stats.health, 0.875, 1e-9);
    EXPECT_NEAR(*stats.powerWatts, 25, 1e-9);
    EXPECT_NEAR(*stats.temperature, 31.2, 1e-9);
    EXPECT_FALSE(stats.lowPowerMode);
}

TEST_F(SensorMachinesTest, HybridGraphicsLaptopLeavesTheSuspendedCardOut) {
    start("hybrid-graphics-laptop");
    expectGroups({{TempCategory::cpu, 60},
                  {TempCategory::gpu, 51},
                  {TempCategory::enclosure, 39},
                  {TempCategory::battery, 31.2}});
    EXPECT_EQ(speeds(), (std::vector<double>{0, 2490}));
}

TEST_F(SensorMachinesTest, OldMacIsClassifiedByItsKeys) {
    start("old-mac");
    expectGroups({{TempCategory::cpu, 62}, {TempCategory::gpu, 55.5}, {TempCategory::enclosure, 37}});
    EXPECT_EQ(temperatureSampler->cpuTemperature(), std::nullopt);
    EXPECT_EQ(speeds(), (std::vector<double>{2000, 1998}));
}

TEST_F(SensorMachinesTest, RaspberryPiMeasuresItsProcessorOnce) {
    start("raspberry-pi");
    expectGroups({{TempCategory::cpu, 51.121}});
    EXPECT_EQ(thermal->sensors(ThermalSensorSource::Scope::all)->size(), 1U);
    EXPECT_EQ(speeds(), std::vector<double>{2890});
}

TEST_F(SensorMachinesTest, ArmBoardIsMeasuredByItsZones) {
    start("arm-zones");
    expectGroups({{TempCategory::cpu, 52}, {TempCategory::gpu, 49}, {TempCategory::soc, 48}});
    EXPECT_EQ(temperatureSampler->cpuTemperature(), 52.0);
}

TEST_F(SensorMachinesTest, VirtualMachineWithNothingHasNothing) {
    start("bare");
    EXPECT_EQ(sampleBattery(), BatteryStats{});
    expectGroups({});
    EXPECT_EQ(temperatureSampler->cpuTemperature(), std::nullopt);
    EXPECT_EQ(speeds(), std::vector<double>{});
}

TEST_F(SensorMachinesTest, DamagedAttributesLoseTheirOwnFigureOnly) {
    start("damaged-sensors");
    const BatteryStats stats = sampleBattery();
    EXPECT_TRUE(stats.present);
    EXPECT_EQ(stats.percent, 0);
    EXPECT_FALSE(stats.isPluggedIn);
    EXPECT_EQ(stats.cycleCount, 41);
    EXPECT_EQ(stats.health, std::nullopt);
    EXPECT_EQ(stats.powerWatts, std::nullopt);
    expectGroups({{TempCategory::cpu, 52}});
    EXPECT_EQ(speeds(), std::vector<double>{1500});
}

}  // namespace
}  // namespace velmora
