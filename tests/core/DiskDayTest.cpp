#include "core/DiskDay.h"

#include "fakes/FakeDefaults.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using nlohmann::json;

class DiskDayTest : public testing::Test {
protected:
    void store(std::uint64_t read, std::uint64_t write) {
        defaults.stored["disk.today.day"] = "2024-03-01";
        defaults.stored["disk.today.read"] = read;
        defaults.stored["disk.today.write"] = write;
    }

    FakeDefaults defaults;
    DiskStats stats;
};

TEST_F(DiskDayTest, FirstRunRollsOverAndCountsFromZero) {
    DiskDay day(defaults);
    day.count("2024-03-01", 1000, 2000, stats);
    EXPECT_EQ(stats.readToday, 0U);
    EXPECT_EQ(stats.writeToday, 0U);
    EXPECT_EQ(defaults.stored["disk.today.day"], json("2024-03-01"));
    EXPECT_EQ(defaults.stored["disk.today.read"], json(1000U));
    EXPECT_EQ(defaults.stored["disk.today.write"], json(2000U));
}

TEST_F(DiskDayTest, TodayIsTheDifferenceFromTheBase) {
    DiskDay day(defaults);
    day.count("2024-03-01", 1000, 2000, stats);
    day.count("2024-03-01", 1500, 2700, stats);
    EXPECT_EQ(stats.readToday, 500U);
    EXPECT_EQ(stats.writeToday, 700U);
}

TEST_F(DiskDayTest, RestartInTheSameDayContinues) {
    store(1000, 2000);
    DiskDay day(defaults);
    day.count("2024-03-01", 4000, 6000, stats);
    EXPECT_EQ(stats.readToday, 3000U);
    EXPECT_EQ(stats.writeToday, 4000U);
    EXPECT_TRUE(defaults.writes.empty());
}

TEST_F(DiskDayTest, NewDayStartsFromZero) {
    store(1000, 2000);
    DiskDay day(defaults);
    day.count("2024-03-02", 4000, 6000, stats);
    EXPECT_EQ(stats.readToday, 0U);
    EXPECT_EQ(stats.writeToday, 0U);
    EXPECT_EQ(defaults.stored["disk.today.day"], json("2024-03-02"));
    EXPECT_EQ(defaults.stored["disk.today.read"], json(4000U));
}

TEST_F(DiskDayTest, RebootCountsFromTheBoot) {
    store(1000, 2000);
    DiskDay day(defaults);
    day.count("2024-03-01", 300, 100, stats);
    EXPECT_EQ(stats.readToday, 300U);
    EXPECT_EQ(stats.writeToday, 100U);
    EXPECT_EQ(defaults.stored["disk.today.read"], json(0U));
    EXPECT_EQ(defaults.stored["disk.today.write"], json(0U));
}

TEST_F(DiskDayTest, OneCounterThatWentBackResetsBoth) {
    store(1000, 2000);
    DiskDay day(defaults);
    day.count("2024-03-01", 5000, 100, stats);
    EXPECT_EQ(stats.readToday, 5000U);
    EXPECT_EQ(stats.writeToday, 100U);
}

TEST_F(DiskDayTest, PairOfZerosSinceBootStays) {
    store(1000, 2000);
    DiskDay day(defaults);
    day.count("2024-03-01", 300, 100, stats);
    day.count("2024-03-01", 900, 400, stats);
    EXPECT_EQ(stats.readToday, 900U);
    EXPECT_EQ(stats.writeToday, 400U);
}

TEST_F(DiskDayTest, StoredWriteWithoutReadRebasesBoth) {
    store(0, 2000);
    defaults.stored.erase("disk.today.read");
    DiskDay day(defaults);
    day.count("2024-03-01", 4000, 6000, stats);
    EXPECT_EQ(stats.readToday, 0U);
    EXPECT_EQ(stats.writeToday, 0U);
    EXPECT_EQ(defaults.stored["disk.today.read"], json(4000U));
    EXPECT_EQ(defaults.stored["disk.today.write"], json(6000U));
}

TEST_F(DiskDayTest, StoredReadWithoutWriteRebasesBoth) {
    store(2000, 0);
    DiskDay day(defaults);
    day.count("2024-03-01", 4000, 6000, stats);
    EXPECT_EQ(stats.readToday, 0U);
    EXPECT_EQ(stats.writeToday, 0U);
}

TEST_F(DiskDayTest, BasesBeyondFiftyThreeBitsKeepTheirPrecision) {
    store(9'007'199'254'740'993U, 1);
    DiskDay day(defaults);
    day.count("2024-03-01", 9'007'199'254'740'994U, 1, stats);
    EXPECT_EQ(stats.readToday, 1U);
}

TEST_F(DiskDayTest, BaseStoredAsADoubleIsReadAsAWholeNumber) {
    store(0, 1000);
    defaults.stored["disk.today.read"] = 2000.0;
    DiskDay day(defaults);
    day.count("2024-03-01", 2500, 1000, stats);
    EXPECT_EQ(stats.readToday, 500U);
}

TEST_F(DiskDayTest, StoredValuesOfTheWrongTypeReadAsNothing) {
    defaults.stored["disk.today.day"] = 3;
    defaults.stored["disk.today.read"] = "many";
    defaults.stored["disk.today.write"] = -5;
    DiskDay day(defaults);
    day.count("2024-03-01", 4000, 6000, stats);
    EXPECT_EQ(stats.readToday, 0U);
    EXPECT_EQ(defaults.stored["disk.today.day"], json("2024-03-01"));
}

}  // namespace
}  // namespace velmora
