#include "core/SensorDay.h"

#include "fakes/FakeDefaults.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using nlohmann::json;

class SensorDayTest : public testing::Test {
protected:
    FakeDefaults defaults;
    SensorsStats stats;
};

TEST_F(SensorDayTest, FirstRunTakesTheFirstReadings) {
    SensorDay day(defaults);
    day.count("2024-03-01", 41.5, 2200, stats);
    EXPECT_EQ(stats.maxToday, 41.5);
    EXPECT_EQ(stats.fanMaxRpm, 2200.0);
    EXPECT_EQ(defaults.stored["sen.today.day"], json("2024-03-01"));
    EXPECT_EQ(defaults.stored["sen.today.max"], json(41.5));
    EXPECT_EQ(defaults.stored["sen.fan.max"], json(2200.0));
}

TEST_F(SensorDayTest, LowerReadingsLeaveTheMaxima) {
    SensorDay day(defaults);
    day.count("2024-03-01", 70, 3000, stats);
    defaults.writes.clear();
    day.count("2024-03-01", 40, 1000, stats);
    EXPECT_EQ(stats.maxToday, 70.0);
    EXPECT_EQ(stats.fanMaxRpm, 3000.0);
    EXPECT_TRUE(defaults.writes.empty());
}

TEST_F(SensorDayTest, NewDayForgetsTheTemperatureButNeverTheFan) {
    SensorDay day(defaults);
    day.count("2024-03-01", 70, 3000, stats);
    day.count("2024-03-02", 40, 1000, stats);
    EXPECT_EQ(stats.maxToday, 40.0);
    EXPECT_EQ(stats.fanMaxRpm, 3000.0);
}

TEST_F(SensorDayTest, RestartInTheSameDayContinues) {
    defaults.stored["sen.today.day"] = "2024-03-01";
    defaults.stored["sen.today.max"] = 66.0;
    defaults.stored["sen.fan.max"] = 4000.0;
    SensorDay day(defaults);
    day.count("2024-03-01", 40, 1000, stats);
    EXPECT_EQ(stats.maxToday, 66.0);
    EXPECT_EQ(stats.fanMaxRpm, 4000.0);
}

TEST_F(SensorDayTest, MachineWithoutSensorsKeepsTheOldMaximumStoredAndARestartRestoresIt) {
    defaults.stored["sen.today.day"] = "2024-03-01";
    defaults.stored["sen.today.max"] = 66.0;
    {
        SensorDay day(defaults);
        day.count("2024-03-02", 0, 0, stats);
        EXPECT_EQ(stats.maxToday, 0.0);
        EXPECT_EQ(defaults.stored["sen.today.max"], json(66.0));
    }
    SensorDay restarted(defaults);
    restarted.count("2024-03-02", 0, 0, stats);
    EXPECT_EQ(stats.maxToday, 66.0);
}

}  // namespace
}  // namespace velmora
