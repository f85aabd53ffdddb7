#include "core/BatteryLongSeries.h"

#include "core/SeriesPoints.h"
#include "fakes/FakeDefaults.h"
#include "fakes/FakeDisplay.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmora {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr Date kStart{1'700'000'000};

class BatteryLongSeriesTest : public testing::Test {
protected:
    BatteryLongSeriesTest() { stats.percent = 80; }

    void storeOnePoint() {
        defaults.stored["bat.long.percent"] = {0.5};
        defaults.stored["bat.long.plugged"] = {1.0};
        defaults.stored["bat.long.screen"] = {1.0};
        defaults.stored["bat.long.at"] = kStart.secondsSince1970;
    }

    FakeDefaults defaults;
    FakeDisplay display;
    BatteryStats stats;
};

TEST_F(BatteryLongSeriesTest, FirstEverSampleAppends287FlatPointsAndOneReal) {
    stats.isPluggedIn = true;
    BatteryLongSeries series(defaults, display);
    series.sample(kStart, stats);
    ASSERT_EQ(stats.percentLong.size(), 288U);
    EXPECT_THAT(points(stats.percentLong), testing::Each(0.8));
    ASSERT_EQ(stats.pluggedLong.size(), 288U);
    EXPECT_EQ(std::count(stats.pluggedLong.begin(), stats.pluggedLong.end() - 1, 0.0), 287);
    EXPECT_EQ(stats.pluggedLong.back(), 1.0);
    ASSERT_EQ(stats.screenOnLong.size(), 288U);
    EXPECT_EQ(std::count(stats.screenOnLong.begin(), stats.screenOnLong.end() - 1, 0.0), 287);
    EXPECT_EQ(stats.screenOnLong.back(), 1.0);
}

TEST_F(BatteryLongSeriesTest, NothingIsAddedWithinASlot) {
    storeOnePoint();
    BatteryLongSeries series(defaults, display);
    series.sample(kStart + 299.9, stats);
    EXPECT_THAT(points(stats.percentLong), ElementsAre(0.5));
    EXPECT_THAT(defaults.writes, IsEmpty());
}

TEST_F(BatteryLongSeriesTest, OneSlotAddsOneRealPoint) {
    storeOnePoint();
    display.asleep = true;
    BatteryLongSeries series(defaults, display);
    series.sample(kStart + 300, stats);
    EXPECT_THAT(points(stats.percentLong), ElementsAre(0.5, 0.8));
    EXPECT_THAT(points(stats.pluggedLong), ElementsAre(1.0, 0.0));
    EXPECT_THAT(points(stats.screenOnLong), ElementsAre(1.0, 0.0));
}

TEST_F(BatteryLongSeriesTest, MissedSlotsAreFilledWithTheLastCharge) {
    storeOnePoint();
    stats.isPluggedIn = true;
    BatteryLongSeries series(defaults, display);
    series.sample(kStart + 1199, stats);  // Three whole slots.
    EXPECT_THAT(points(stats.percentLong), ElementsAre(0.5, 0.5, 0.5, 0.8));
    EXPECT_THAT(points(stats.pluggedLong), ElementsAre(1.0, 0.0, 0.0, 1.0));
    EXPECT_THAT(points(stats.screenOnLong), ElementsAre(1.0, 0.0, 0.0, 1.0));
}

TEST_F(BatteryLongSeriesTest, SlotsAreMeasuredFromTheLastStep) {
    storeOnePoint();
    BatteryLongSeries series(defaults, display);
    series.sample(kStart + 400, stats);
    series.sample(kStart + 699, stats);
    EXPECT_EQ(stats.percentLong.size(), 2U);
    series.sample(kStart + 700, stats);
    EXPECT_EQ(stats.percentLong.size(), 3U);
}

TEST_F(BatteryLongSeriesTest, SeriesAreCappedAtADay) {
    defaults.stored["bat.long.percent"] = std::vector<double>(288, 0.25);
    defaults.stored["bat.long.plugged"] = std::vector<double>(288, 1.0);
    defaults.stored["bat.long.screen"] = std::vector<double>(288, 1.0);
    defaults.stored["bat.long.at"] = kStart.secondsSince1970;
    BatteryLongSeries series(defaults, display);
    series.sample(kStart + 300, stats);
    EXPECT_EQ(stats.percentLong.size(), 288U);
    EXPECT_EQ(stats.percentLong[286], 0.25);
    EXPECT_EQ(stats.percentLong.back(), 0.8);
}

TEST_F(BatteryLongSeriesTest, StepIsStoredAtOnce) {
    storeOnePoint();
    BatteryLongSeries series(defaults, display);
    series.sample(kStart + 300, stats);
    EXPECT_EQ(defaults.stored["bat.long.percent"], json({0.5, 0.8}));
    EXPECT_EQ(defaults.stored["bat.long.plugged"], json({1.0, 0.0}));
    EXPECT_EQ(defaults.stored["bat.long.screen"], json({1.0, 1.0}));
    EXPECT_EQ(defaults.stored["bat.long.at"], json(kStart.secondsSince1970 + 300));
    for (const FakeDefaults::Write& write : defaults.writes) {
        EXPECT_EQ(write.urgency, Defaults::Urgency::now) << write.key;
    }
}

TEST_F(BatteryLongSeriesTest, RestartGoesOnWithTheStoredSeries) {
    {
        BatteryLongSeries before(defaults, display);
        before.sample(kStart, stats);
    }
    stats.percent = 60;
    BatteryLongSeries after(defaults, display);
    after.sample(kStart + 10, stats);
    EXPECT_EQ(stats.percentLong.back(), 0.8);
    after.sample(kStart + 300, stats);
    EXPECT_EQ(stats.percentLong.back(), 0.6);
    EXPECT_EQ(stats.percentLong[286], 0.8);
}

TEST_F(BatteryLongSeriesTest, StoredSeriesThatAreTooLongKeepTheirEnd) {
    storeOnePoint();
    std::vector<double> percents(300, 0.1);
    percents.back() = 0.9;
    defaults.stored["bat.long.percent"] = percents;
    BatteryLongSeries series(defaults, display);
    series.sample(kStart, stats);
    EXPECT_EQ(stats.percentLong.size(), 288U);
    EXPECT_EQ(stats.percentLong.back(), 0.9);
}

TEST_F(BatteryLongSeriesTest, StoredValuesOfTheWrongTypeReadAsNothing) {
    defaults.stored["bat.long.percent"] = "full";
    defaults.stored["bat.long.at"] = "yesterday";
    BatteryLongSeries series(defaults, display);
    series.sample(kStart, stats);
    EXPECT_EQ(stats.percentLong.size(), 288U);
    EXPECT_THAT(points(stats.percentLong), testing::Each(0.8));
}

TEST_F(BatteryLongSeriesTest, ClockBeforeTheLastStepAddsNothing) {
    storeOnePoint();
    BatteryLongSeries series(defaults, display);
    series.sample(kStart + -5000, stats);
    EXPECT_EQ(stats.percentLong.size(), 1U);
}

}  // namespace
}  // namespace velmora
