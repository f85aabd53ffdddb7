#include "core/NetworkDay.h"

#include "fakes/FakeDefaults.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using nlohmann::json;

constexpr const char* kDay = "2024-03-01";

class NetworkDayTest : public testing::Test {
protected:
    void storeDay(std::uint64_t down, std::uint64_t up) {
        defaults.stored["net.today.day"] = kDay;
        defaults.stored["net.today.base"] = down + up;
        defaults.stored["net.today.baseDown"] = down;
        defaults.stored["net.today.baseUp"] = up;
        defaults.stored["net.month.key"] = "2024-03";
        defaults.stored["net.month.base"] = down + up;
    }
    void count(NetworkDay& day, std::uint64_t down, std::uint64_t up, const std::string& key = kDay) {
        stats.totalDown = down;
        stats.totalUp = up;
        day.count(key, 2.0, stats);
    }

    FakeDefaults defaults;
    NetworkStats stats;
};

TEST_F(NetworkDayTest, FirstRunRollsOverAndCountsFromZero) {
    NetworkDay day(defaults);
    count(day, 1000, 200);
    EXPECT_EQ(stats.totalToday, 0U);
    EXPECT_EQ(stats.downToday, 0U);
    EXPECT_EQ(stats.upToday, 0U);
    EXPECT_EQ(stats.monthTotal, 0U);
    EXPECT_EQ(defaults.stored["net.today.day"], json(kDay));
    EXPECT_EQ(defaults.stored["net.today.base"], json(1200U));
    EXPECT_EQ(defaults.stored["net.today.baseDown"], json(1000U));
    EXPECT_EQ(defaults.stored["net.today.baseUp"], json(200U));
    EXPECT_EQ(defaults.stored["net.today.peak"], json(0.0));
    EXPECT_EQ(defaults.stored["net.month.key"], json("2024-03"));
    EXPECT_EQ(defaults.stored["net.month.base"], json(1200U));
}

TEST_F(NetworkDayTest, RestartInTheSameDayContinues) {
    storeDay(1000, 200);
    NetworkDay day(defaults);
    count(day, 1500, 250);
    EXPECT_EQ(stats.totalToday, 550U);
    EXPECT_EQ(stats.downToday, 500U);
    EXPECT_EQ(stats.upToday, 50U);
    EXPECT_EQ(stats.monthTotal, 550U);
}

TEST_F(NetworkDayTest, RebootInTheSameDayRestartsFromTheBootsCounters) {
    storeDay(1000, 200);
    NetworkDay day(defaults);
    count(day, 70, 30);
    EXPECT_EQ(stats.totalToday, 100U);
    EXPECT_EQ(stats.downToday, 70U);
    EXPECT_EQ(stats.upToday, 30U);
    EXPECT_EQ(defaults.stored["net.today.base"], json(0U));
    EXPECT_EQ(defaults.stored["net.today.baseDown"], json(0U));
    EXPECT_EQ(defaults.stored["net.today.baseUp"], json(0U));
}

TEST_F(NetworkDayTest, RebootAfterHeavyTrafficUnderstatesTheDay) {
    storeDay(1000, 200);
    NetworkDay day(defaults);
    count(day, 1100, 300);
    EXPECT_EQ(stats.totalToday, 200U);
    EXPECT_EQ(defaults.writeCount("net.today.base"), 0U);
}

TEST_F(NetworkDayTest, SingleCounterThatWentBackDoesNotWrap) {
    storeDay(1000, 200);
    NetworkDay day(defaults);
    count(day, 5000, 50);
    EXPECT_EQ(stats.totalToday, 3850U);
    EXPECT_EQ(stats.downToday, 4000U);
    EXPECT_EQ(stats.upToday, 50U);
    count(day, 600, 5000);
    EXPECT_EQ(stats.downToday, 600U);
    EXPECT_EQ(stats.upToday, 4800U);
}

TEST_F(NetworkDayTest, NewDayOfTheMonthKeepsTheMonth) {
    storeDay(1000, 200);
    NetworkDay day(defaults);
    count(day, 3000, 1200, "2024-03-02");
    EXPECT_EQ(stats.totalToday, 0U);
    EXPECT_EQ(stats.monthTotal, 3000U);
    EXPECT_EQ(defaults.writeCount("net.month.key"), 0U);
}

TEST_F(NetworkDayTest, NewMonthStartsFromZero) {
    storeDay(1000, 200);
    NetworkDay day(defaults);
    count(day, 3000, 1200, "2024-04-01");
    EXPECT_EQ(stats.monthTotal, 0U);
    EXPECT_EQ(defaults.stored["net.month.key"], json("2024-04"));
    EXPECT_EQ(defaults.stored["net.month.base"], json(4200U));
}

TEST_F(NetworkDayTest, RebootDropsTheMonthsEarlierTraffic) {
    storeDay(1000, 200);
    NetworkDay day(defaults);
    count(day, 70, 30);
    EXPECT_EQ(stats.monthTotal, 100U);
    EXPECT_EQ(defaults.stored["net.month.base"], json(0U));
}

TEST_F(NetworkDayTest, ActiveTimeGrowsOnlyAboveTheThreshold) {
    NetworkDay day(defaults);
    stats.downPerSec = 9000;
    stats.upPerSec = 1000;
    count(day, 0, 0);
    EXPECT_EQ(stats.activeSecToday, 0.0);
    stats.upPerSec = 1000.5;
    count(day, 0, 0);
    EXPECT_EQ(stats.activeSecToday, 2.0);
}

TEST_F(NetworkDayTest, ActiveTimeIsWrittenRelaxedOnEverySample) {
    NetworkDay day(defaults);
    count(day, 0, 0);
    count(day, 0, 0);
    count(day, 0, 0);
    EXPECT_EQ(defaults.writeCount("net.today.active"), 3U);
    ASSERT_NE(defaults.lastWrite("net.today.active"), nullptr);
    EXPECT_EQ(defaults.lastWrite("net.today.active")->urgency, Defaults::Urgency::relaxed);
}

TEST_F(NetworkDayTest, EverythingElseIsWrittenAtOnceAndOnlyWhenItChanges) {
    NetworkDay day(defaults);
    count(day, 100, 100);
    defaults.writes.clear();
    count(day, 200, 200);
    ASSERT_EQ(defaults.writes.size(), 1U);
    EXPECT_EQ(defaults.writes[0].key, "net.today.active");
    stats.downPerSec = 5;
    count(day, 200, 200);
    ASSERT_NE(defaults.lastWrite("net.today.peak"), nullptr);
    EXPECT_EQ(defaults.lastWrite("net.today.peak")->urgency, Defaults::Urgency::now);
}

TEST_F(NetworkDayTest, ActiveTimeDoesNotFallAtMidnight) {
    NetworkDay day(defaults);
    stats.downPerSec = 20000;
    count(day, 0, 0);
    count(day, 0, 0, "2024-03-02");
    EXPECT_EQ(stats.activeSecToday, 4.0);
}

TEST_F(NetworkDayTest, ActiveTimeContinuesAfterARestart) {
    defaults.stored["net.today.active"] = 50.5;
    NetworkDay day(defaults);
    count(day, 0, 0);
    EXPECT_EQ(stats.activeSecToday, 50.5);
}

TEST_F(NetworkDayTest, PeakKeepsTheHighestRateOfTheDay) {
    NetworkDay day(defaults);
    stats.downPerSec = 700;
    count(day, 0, 0);
    stats.downPerSec = 300;
    count(day, 0, 0);
    EXPECT_EQ(stats.peakTodayDown, 700.0);
    EXPECT_EQ(defaults.stored["net.today.peak"], json(700.0));
    count(day, 0, 0, "2024-03-02");
    EXPECT_EQ(stats.peakTodayDown, 300.0);
}

TEST_F(NetworkDayTest, PeakContinuesAfterARestart) {
    storeDay(0, 0);
    defaults.stored["net.today.peak"] = 900.0;
    NetworkDay day(defaults);
    stats.downPerSec = 300;
    count(day, 0, 0);
    EXPECT_EQ(stats.peakTodayDown, 900.0);
}

}  // namespace
}  // namespace velmora
