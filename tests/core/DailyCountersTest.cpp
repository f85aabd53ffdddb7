#include "core/DailyCounters.h"

#include "core/TimeZoneGuard.h"
#include "fakes/FakeDefaults.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using nlohmann::json;

// 2024-02-28 23:30:00 UTC, half past midnight one hour further east.
constexpr Date kLateEvening{1'709'163'000};

TEST(DailyCountersTest, AllThreeUseTheLocalCalendarDay) {
    const TimeZoneGuard zone("EAST-1");
    FakeDefaults defaults;
    DailyCounters counters(defaults);
    DiskStats disk;
    NetworkStats network;
    SensorsStats sensors;
    counters.countDisk(kLateEvening, 1, 1, disk);
    counters.countNetwork(kLateEvening, 2, network);
    counters.countSensors(kLateEvening, 50, 0, sensors);
    EXPECT_EQ(defaults.stored["disk.today.day"], json("2024-02-29"));
    EXPECT_EQ(defaults.stored["net.today.day"], json("2024-02-29"));
    EXPECT_EQ(defaults.stored["sen.today.day"], json("2024-02-29"));
    EXPECT_EQ(defaults.stored["net.month.key"], json("2024-02"));
}

TEST(DailyCountersTest, ModuleThatWasOffRollsOverWhenItNextSamples) {
    const TimeZoneGuard zone("UTC0");
    FakeDefaults defaults;
    DailyCounters counters(defaults);
    DiskStats disk;
    NetworkStats network;
    counters.countDisk(kLateEvening, 100, 100, disk);
    counters.countNetwork(kLateEvening, 2, network);
    counters.countNetwork(kLateEvening + 3600, 2, network);
    EXPECT_EQ(defaults.stored["net.today.day"], json("2024-02-29"));
    EXPECT_EQ(defaults.stored["disk.today.day"], json("2024-02-28"));
    counters.countDisk(kLateEvening + 7200, 500, 500, disk);
    EXPECT_EQ(defaults.stored["disk.today.day"], json("2024-02-29"));
    EXPECT_EQ(disk.readToday, 0U);
}

TEST(DailyCountersTest, RestartOnTheSameDayGoesOnWithoutAJump) {
    const TimeZoneGuard zone("UTC0");
    FakeDefaults defaults;
    DiskStats disk;
    NetworkStats network;
    network.totalDown = 1000;
    {
        DailyCounters before(defaults);
        before.countDisk(kLateEvening, 100, 100, disk);
        before.countNetwork(kLateEvening, 2, network);
        network.totalDown = 1500;
        before.countDisk(kLateEvening, 400, 100, disk);
        before.countNetwork(kLateEvening, 2, network);
    }
    DailyCounters after(defaults);
    after.countDisk(kLateEvening + 60, 400, 100, disk);
    after.countNetwork(kLateEvening + 60, 2, network);
    EXPECT_EQ(disk.readToday, 300U);
    EXPECT_EQ(network.totalToday, 500U);
    EXPECT_EQ(network.monthTotal, 500U);
}

}  // namespace
}  // namespace velmora
