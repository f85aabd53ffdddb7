#include "platform/linux/power/LinuxBatterySource.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeNetworkSources.h"
#include "fakes/FakePowerServices.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeWorkQueue.h"
#include "platform/linux/files/SystemFile.h"
#include "platform/linux/files/SystemTree.h"
#include "platform/linux/loop/BootTimeClock.h"
#include "platform/linux/loop/ThreadWorkQueue.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora {
namespace {

using Answer = BatterySource::Answer;
using State = PowerDeviceService::State;
using Services = std::vector<PeripheralService>;

class LinuxBatterySourceTest : public testing::Test {
protected:
    LinuxBatterySourceTest() {
        tree.write("sys/class/power_supply/BAT0/type", "Battery\n");
        setBattery("Discharging", 20'000'000);
    }
    void setBattery(const std::string& status, int energy) {
        tree.write("sys/class/power_supply/BAT0/uevent",
                   "POWER_SUPPLY_STATUS=" + status + "\nPOWER_SUPPLY_ENERGY_NOW=" + std::to_string(energy) +
                       "\nPOWER_SUPPLY_ENERGY_FULL=40000000\nPOWER_SUPPLY_VOLTAGE_NOW=10000000\n"
                       "POWER_SUPPLY_POWER_NOW=10000000\n");
    }
    void start() {
        source = std::make_unique<LinuxBatterySource>(tree.root(), queue, runLoop, monotonic, devices,
                                                      profiles, 0);
        queue.runAll();
    }
    std::optional<PowerSource> battery() {
        std::vector<PowerSource> sources;
        if (!source->powerSources(sources) || sources.empty()) return std::nullopt;
        return sources.front();
    }
    Services peripherals(Answer expected) {
        Services services = {{1, "of an earlier answer"}};
        EXPECT_EQ(source->peripherals(services), expected);
        return services;
    }
    static PowerDevice mouse() {
        return {.type = 5, .model = "Mouse", .isPresent = true, .percentage = 54.5};
    }

    SystemTree tree;
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeWorkQueue queue;
    FakeMonotonicClock monotonic;
    FakePowerDeviceService devices;
    FakePowerProfileService profiles;
    std::unique_ptr<LinuxBatterySource> source;
};

TEST_F(LinuxBatterySourceTest, ReadingStartsAtOnceAndOffTheMainThread) {
    source =
        std::make_unique<LinuxBatterySource>(tree.root(), queue, runLoop, monotonic, devices, profiles, 0);
    EXPECT_EQ(queue.pendingCount(), 1U);
    EXPECT_EQ(battery(), std::nullopt);
    queue.runAll();
    EXPECT_EQ(battery()->currentCapacity, 20'000'000);
}

TEST_F(LinuxBatterySourceTest, WithAThreadTheFirstQuestionHasAnAnswer) {
    ThreadWorkQueue threads;
    constexpr double kLongerThanAnyTestMachineTakes = 20;
    LinuxBatterySource threaded(tree.root(), threads, runLoop, monotonic, devices, profiles,
                                kLongerThanAnyTestMachineTakes);
    std::vector<PowerSource> sources;
    EXPECT_TRUE(threaded.powerSources(sources));
    EXPECT_EQ(sources.size(), 1U);
    EXPECT_TRUE(threaded.smartBattery());
}

TEST_F(LinuxBatterySourceTest, MachineWithoutBatteryHasAnEmptyList) {
    tree.remove("sys/class/power_supply");
    start();
    std::vector<PowerSource> sources;
    EXPECT_TRUE(source->powerSources(sources));
    EXPECT_TRUE(sources.empty());
    EXPECT_EQ(source->smartBattery(), std::nullopt);
}

TEST_F(LinuxBatterySourceTest, BatteryThatIsTakenOutIsGoneAtTheNextReading) {
    start();
    EXPECT_TRUE(battery());
    tree.remove("sys/class/power_supply/BAT0");
    monotonic.now += 10;
    battery();
    queue.runAll();
    monotonic.now += 10;
    EXPECT_EQ(battery(), std::nullopt);
}

TEST_F(LinuxBatterySourceTest, BatteryThatHangsIsAbsentAfterThreeRefreshes) {
    start();
    for (int question = 0; question < 4; ++question) {
        EXPECT_TRUE(battery()) << question;
        monotonic.now += 10;
    }
    EXPECT_FALSE(battery());
}

TEST_F(LinuxBatterySourceTest, AttributesAreReadSinglyWhereTheyCannotBeReadTogether) {
    tree.remove("sys/class/power_supply/BAT0/uevent");
    tree.write("sys/class/power_supply/BAT0/status", "Charging\n");
    tree.write("sys/class/power_supply/BAT0/capacity", "42\n");
    start();
    EXPECT_EQ(battery()->currentCapacity, 42);
    EXPECT_EQ(battery()->isCharging, true);
}

// Times

TEST_F(LinuxBatterySourceTest, WithoutTheServiceTimesComeFromThePresentPower) {
    start();
    EXPECT_EQ(battery()->timeToEmpty, 120);
}

TEST_F(LinuxBatterySourceTest, SecondsOfTheServiceBecomeMinutes) {
    devices.current = State::known;
    devices.told.display = PowerDevice{.type = PowerDevice::battery, .timeToEmpty = 7259, .timeToFull = 61};
    start();
    EXPECT_EQ(battery()->timeToEmpty, 120);
    EXPECT_EQ(battery()->timeToFullCharge, 1);
    devices.told.display->timeToEmpty = 59;
    EXPECT_EQ(battery()->timeToEmpty, 0);
}

TEST_F(LinuxBatterySourceTest, ServiceThatDoesNotKnowTheTimeIsBelieved) {
    devices.current = State::known;
    devices.told.display = PowerDevice{.type = PowerDevice::battery};
    start();
    EXPECT_EQ(battery()->timeToEmpty, 0);
}

TEST_F(LinuxBatterySourceTest, ServiceWithoutBatteryDoesNotCount) {
    devices.current = State::known;
    devices.told.display = PowerDevice{.type = PowerDevice::unknown};
    start();
    EXPECT_EQ(battery()->timeToEmpty, 120);
}

// Low-power mode

TEST_F(LinuxBatterySourceTest, SavingProfileIsLowPowerMode) {
    start();
    EXPECT_FALSE(source->isLowPowerModeEnabled());
    profiles.profile = "power-saver";
    EXPECT_TRUE(source->isLowPowerModeEnabled());
    profiles.profile = "balanced";
    EXPECT_FALSE(source->isLowPowerModeEnabled());
}

TEST_F(LinuxBatterySourceTest, FirmwaresProfileServesWithoutTheService) {
    tree.write("sys/firmware/acpi/platform_profile", "low-power\n");
    start();
    EXPECT_TRUE(source->isLowPowerModeEnabled());
}

TEST_F(LinuxBatterySourceTest, ServiceCountsMoreThanTheFirmware) {
    tree.write("sys/firmware/acpi/platform_profile", "low-power\n");
    profiles.profile = "performance";
    start();
    EXPECT_FALSE(source->isLowPowerModeEnabled());
}

// Wireless devices

TEST_F(LinuxBatterySourceTest, WhileTheServiceIsAskedNothingIsKnown) {
    devices.current = State::asking;
    start();
    peripherals(Answer::notYet);
    EXPECT_EQ(queue.pendingCount(), 0U);
}

TEST_F(LinuxBatterySourceTest, DevicesOfTheServiceAreListedWithRoundedPercentages) {
    devices.current = State::known;
    devices.told.devices = {mouse()};
    start();
    EXPECT_EQ(peripherals(Answer::given), (Services{{55, "Mouse"}}));
}

TEST_F(LinuxBatterySourceTest, DevicesThatFeedTheMachineOrAreAwayAreNot) {
    devices.current = State::known;
    PowerDevice battery = mouse();
    battery.powerSupply = true;
    PowerDevice away = mouse();
    away.isPresent = false;
    PowerDevice line = mouse();
    line.type = PowerDevice::linePower;
    devices.told.devices = {battery, away, line};
    start();
    EXPECT_EQ(peripherals(Answer::given), Services{});
}

TEST_F(LinuxBatterySourceTest, DeviceOfUnknownKindPassesForABatteryAndIsListed) {
    devices.current = State::known;
    devices.told.devices = {mouse()};
    devices.told.devices[0].type = PowerDevice::battery;
    start();
    EXPECT_EQ(peripherals(Answer::given), (Services{{55, "Mouse"}}));
}

TEST_F(LinuxBatterySourceTest, CoarseLevelWithoutPercentageHasNone) {
    devices.current = State::known;
    devices.told.devices = {mouse(), mouse()};
    devices.told.devices[0].batteryLevel = 6;
    devices.told.devices[0].percentage = 0;
    devices.told.devices[1].batteryLevel = 6;
    devices.told.devices[1].percentage = 55;
    start();
    EXPECT_EQ(peripherals(Answer::given), (Services{{std::nullopt, "Mouse"}, {55, "Mouse"}}));
}

TEST_F(LinuxBatterySourceTest, ExactPercentageOfZeroIsListed) {
    devices.current = State::known;
    devices.told.devices = {mouse()};
    devices.told.devices[0].percentage = 0;
    start();
    EXPECT_EQ(peripherals(Answer::given), (Services{{0, "Mouse"}}));
}

TEST_F(LinuxBatterySourceTest, ImpossiblePercentageIsNone) {
    devices.current = State::known;
    for (const double percent : {-1.0, 100.5, 1e300, std::numeric_limits<double>::quiet_NaN(),
                                 std::numeric_limits<double>::infinity()}) {
        devices.told.devices = {mouse()};
        devices.told.devices[0].percentage = percent;
        start();
        EXPECT_EQ(peripherals(Answer::given), (Services{{std::nullopt, "Mouse"}})) << percent;
    }
}

TEST_F(LinuxBatterySourceTest, DeviceWithoutModelHasNoProduct) {
    devices.current = State::known;
    devices.told.devices = {mouse()};
    devices.told.devices[0].model = "";
    start();
    EXPECT_EQ(peripherals(Answer::given), (Services{{55, std::nullopt}}));
}

TEST_F(LinuxBatterySourceTest, WithoutTheServiceDevicesAreReadOnTheWorkQueue) {
    tree.write("sys/class/power_supply/hidpp_battery_0/type", "Battery\n");
    tree.write("sys/class/power_supply/hidpp_battery_0/scope", "Device\n");
    tree.write("sys/class/power_supply/hidpp_battery_0/uevent",
               "POWER_SUPPLY_CAPACITY=65\nPOWER_SUPPLY_MODEL_NAME=Wireless Mouse\n");
    start();
    peripherals(Answer::notYet);
    queue.runAll();
    EXPECT_EQ(peripherals(Answer::given), (Services{{65, "Wireless Mouse"}}));
}

TEST_F(LinuxBatterySourceTest, DeviceBatteryIsNotReadWithTheMachines) {
    tree.write("sys/class/power_supply/AAA/type", "Battery\n");
    tree.write("sys/class/power_supply/AAA/scope", "Device\n");
    tree.write("sys/class/power_supply/AAA/uevent", "POWER_SUPPLY_CAPACITY=1\n");
    start();
    EXPECT_EQ(battery()->currentCapacity, 20'000'000);
}

TEST(LinuxBatteryLiveTest, ThisMachineHasABatteryIfTheKernelListsOne) {
    bool isListed = false;
    const std::string parent = "/sys/class/power_supply/";
    for (const std::string& name : systemFolderEntries(parent)) {
        isListed = isListed || (readSystemWord(parent + name + "/type") == "Battery" &&
                                readSystemWord(parent + name + "/scope") != "Device" &&
                                readSystemWord(parent + name + "/present") != "0");
    }
    FakeClock clock;
    FakeRunLoop runLoop(clock);
    ThreadWorkQueue threads;
    const BootTimeClock bootTime;
    FakePowerDeviceService devices;
    FakePowerProfileService profiles;
    LinuxBatterySource source(SystemRoot(), threads, runLoop, bootTime, devices, profiles, 20);
    std::vector<PowerSource> sources;
    EXPECT_TRUE(source.powerSources(sources));
    EXPECT_EQ(!sources.empty(), isListed);
}

}  // namespace
}  // namespace velmora
