#include "core/DiskStage.h"

#include "core/DailyCounters.h"
#include "core/SeriesPoints.h"
#include "fakes/FakeDefaults.h"
#include "fakes/FakeSamplers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmora {
namespace {

using testing::ElementsAre;

class DiskStageTest : public testing::Test {
protected:
    DiskStageTest() { disk.mounted = {{.path = "/", .name = "System", .bsd = "disk1s1"}}; }

    FakeDiskSampler disk;
    FakeVolumeIOSampler volumeIO;
    FakeDefaults defaults;
    DailyCounters daily{defaults};
    DiskStage stage{disk, volumeIO, daily};
    DiskStats stats;
};

TEST_F(DiskStageTest, ActivityIsTakenOverWithTheElapsedTime) {
    disk.figures = {100, 50, 7, 1000, 2000};
    stage.sample(Date{0}, 2, stats);
    EXPECT_EQ(stats.readPerSec, 100);
    EXPECT_EQ(stats.writePerSec, 50);
    EXPECT_EQ(stats.iops, 7);
    EXPECT_THAT(points(stats.activityHistory), ElementsAre(150.0));
    EXPECT_THAT(points(stats.readHistory), ElementsAre(100.0));
    EXPECT_THAT(points(stats.writeHistory), ElementsAre(50.0));
    EXPECT_THAT(disk.intervals, ElementsAre(2.0));
    EXPECT_THAT(volumeIO.intervals, ElementsAre(2.0));
}

TEST_F(DiskStageTest, CumulativeCountersMakeTheDaysFigures) {
    disk.figures = {0, 0, 0, 1000, 2000};
    stage.sample(Date{0}, 0, stats);
    disk.figures = {0, 0, 0, 1600, 2700};
    stage.sample(Date{2}, 2, stats);
    EXPECT_EQ(stats.readToday, 600U);
    EXPECT_EQ(stats.writeToday, 700U);
}

TEST_F(DiskStageTest, SeriesAreCapped) {
    for (int step = 0; step < 130; ++step) stage.sample(Date{step * 10.0}, 10, stats);
    EXPECT_EQ(stats.activityHistory.size(), 60U);
    EXPECT_EQ(stats.readHistory.size(), 60U);
    EXPECT_EQ(stats.writeHistory.size(), 60U);
    EXPECT_EQ(stats.readLong.size(), 120U);
    EXPECT_EQ(stats.writeLong.size(), 120U);
}

TEST_F(DiskStageTest, LongSeriesGrowEveryTenSeconds) {
    for (int second = 0; second <= 20; ++second) {
        disk.figures.readPerSec = second;
        disk.figures.writePerSec = second + 0.5;
        stage.sample(Date{second * 1.0}, 1, stats);
    }
    EXPECT_THAT(points(stats.readLong), ElementsAre(0.0, 10.0, 20.0));
    EXPECT_THAT(points(stats.writeLong), ElementsAre(0.5, 10.5, 20.5));
}

TEST_F(DiskStageTest, VolumesAreRefreshedAfterMoreThanTenSeconds) {
    stage.sample(Date{0}, 0, stats);
    stage.sample(Date{10}, 10, stats);
    EXPECT_EQ(disk.volumesCount, 1);
    stage.sample(Date{10.5}, 0.5, stats);
    EXPECT_EQ(disk.volumesCount, 2);
}

TEST_F(DiskStageTest, VolumesAreAskedForAtEverySampleWhileThereAreNone) {
    disk.mounted.clear();
    stage.sample(Date{0}, 0, stats);
    stage.sample(Date{1}, 1, stats);
    EXPECT_EQ(disk.volumesCount, 2);
}

TEST_F(DiskStageTest, ThroughputIsMappedAtEverySample) {
    volumeIO.rates = {{"disk1", {10, 20}}};
    stage.sample(Date{0}, 0, stats);
    EXPECT_EQ(stats.volumes.at(0).readPerSec, 10);
    volumeIO.rates.clear();
    stage.sample(Date{1}, 1, stats);
    EXPECT_EQ(stats.volumes.at(0).readPerSec, 0);
    EXPECT_EQ(stats.volumes.at(0).name, "System");
}

}  // namespace
}  // namespace velmora
