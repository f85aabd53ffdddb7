#include "core/SensorsStage.h"

#include "core/DailyCounters.h"
#include "core/SeriesPoints.h"
#include "fakes/FakeDefaults.h"
#include "fakes/FakeImproveEvents.h"
#include "fakes/FakeSamplers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmora {
namespace {

using enum TempCategory;
using testing::ElementsAre;
using testing::IsEmpty;

class SensorsStageTest : public testing::Test {
protected:
    void sample(double at, const std::vector<TemperatureReading>& groups,
                std::optional<double> gpuUsage = std::nullopt) {
        stage.sample(Date{at}, gpuUsage, groups, stats);
    }
    std::vector<double> series(TempCategory category) const {
        return points(stats.temperatureHistories[indexOf(category)]);
    }

    FakeFanSampler fan;
    FakeImproveEvents improve;
    FakeDefaults defaults;
    DailyCounters daily{defaults};
    SensorsStage stage{fan, improve, daily};
    SensorsStats stats;
};

TEST_F(SensorsStageTest, ReadingsFansAndAcceleratorAreTakenOver) {
    fan.rpm = {1200, 1400};
    sample(0, {{TempCategory::cpu, 45}, {ssd, 38}}, 0.5);
    EXPECT_THAT(stats.temperatures,
                ElementsAre(TemperatureReading{TempCategory::cpu, 45}, TemperatureReading{ssd, 38}));
    EXPECT_THAT(stats.fans, ElementsAre(1200.0, 1400.0));
    EXPECT_EQ(stats.gpuUsage, 0.5);
}

TEST_F(SensorsStageTest, VanishedReadingsLeaveNothingBehind) {
    fan.rpm = {1200};
    sample(0, {{TempCategory::cpu, 45}}, 0.5);
    fan.rpm.clear();
    sample(1, {});
    EXPECT_THAT(stats.temperatures, IsEmpty());
    EXPECT_THAT(stats.fans, IsEmpty());
    EXPECT_EQ(stats.gpuUsage, std::nullopt);
}

TEST_F(SensorsStageTest, HistoryIsThePrimaryTemperatureAsAFractionAtMostOne) {
    sample(0, {{ssd, 90}, {TempCategory::cpu, 45}});
    sample(1, {{TempCategory::cpu, 120}});
    sample(2, {});
    EXPECT_THAT(points(stats.history), ElementsAre(0.45, 1.0, 0.0));
}

TEST_F(SensorsStageTest, EachCategoryHasItsOwnSeries) {
    sample(0, {{TempCategory::cpu, 45}, {ssd, 38}});
    sample(1, {{TempCategory::cpu, 46}, {ssd, 39}});
    EXPECT_THAT(series(TempCategory::cpu), ElementsAre(45.0, 46.0));
    EXPECT_THAT(series(ssd), ElementsAre(38.0, 39.0));
    EXPECT_THAT(series(soc), IsEmpty());
}

TEST_F(SensorsStageTest, CategoryThatVanishedLosesItsSeries) {
    sample(0, {{TempCategory::cpu, 45}, {ssd, 38}});
    sample(1, {{TempCategory::cpu, 46}});
    EXPECT_THAT(series(ssd), IsEmpty());
    sample(2, {{TempCategory::cpu, 46}, {ssd, 37}});
    EXPECT_THAT(series(ssd), ElementsAre(37.0));
    EXPECT_EQ(series(TempCategory::cpu).size(), 3U);
}

TEST_F(SensorsStageTest, CategoryReadTwiceAddsItsLastValueOnce) {
    sample(0, {{ssd, 38}, {ssd, 41}});
    EXPECT_THAT(series(ssd), ElementsAre(41.0));
}

TEST_F(SensorsStageTest, SeriesAreCapped) {
    for (int step = 0; step < 200; ++step) sample(step * 10.0, {{TempCategory::cpu, 40}});
    EXPECT_EQ(stats.history.size(), 60U);
    EXPECT_EQ(series(TempCategory::cpu).size(), 60U);
    EXPECT_EQ(stats.cpuLong.size(), 180U);
    EXPECT_EQ(stats.fanLong.size(), 180U);
}

TEST_F(SensorsStageTest, LongSeriesTakeTemperatureAndFastestFanEveryTenSeconds) {
    for (int second = 0; second <= 20; ++second) {
        fan.rpm = {1000.0 + second, 900};
        sample(second, {{TempCategory::cpu, 40.0 + second}});
    }
    EXPECT_THAT(points(stats.cpuLong), ElementsAre(40.0, 50.0, 60.0));
    EXPECT_THAT(points(stats.fanLong), ElementsAre(1000.0, 1010.0, 1020.0));
}

TEST_F(SensorsStageTest, LongSeriesTakeZeroWhereThereIsNothing) {
    sample(0, {});
    EXPECT_THAT(points(stats.cpuLong), ElementsAre(0.0));
    EXPECT_THAT(points(stats.fanLong), ElementsAre(0.0));
}

TEST_F(SensorsStageTest, HighestValuesAreCounted) {
    fan.rpm = {900, 2100};
    sample(0, {{TempCategory::cpu, 71}});
    fan.rpm = {800};
    sample(1, {{TempCategory::cpu, 50}});
    EXPECT_EQ(stats.maxToday, 71.0);
    EXPECT_EQ(stats.fanMaxRpm, 2100.0);
}

TEST_F(SensorsStageTest, GapsAreReportedOnce) {
    sample(0, {{TempCategory::cpu, 45}}, 0.5);
    sample(1, {{TempCategory::cpu, 45}}, 0.5);
    ASSERT_EQ(improve.events.size(), 1U);
    EXPECT_EQ(improve.events[0].fields["metric"], "fan");
}

}  // namespace
}  // namespace velmora
