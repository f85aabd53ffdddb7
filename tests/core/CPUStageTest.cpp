#include "core/CPUStage.h"

#include "core/SeriesPoints.h"
#include "fakes/FakeSamplers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CPUStageTest : public testing::Test {
protected:
    void sample(double at, std::optional<double> gpu = std::nullopt,
                const std::vector<TemperatureReading>& groups = {}) {
        stage.sample(Date{at}, gpu, groups, stats);
    }

    FakeCPUSampler cpu;
    FakeTemperatureSampler temperature;
    CPUStage stage{cpu, temperature};
    CPUStats stats;
};

TEST_F(CPUStageTest, FiguresAreTakenOver) {
    cpu.figures = {0.5, 0.3, 0.2, {0.4, 0.6}};
    cpu.load = {1, 2, 3};
    cpu.uptimeSeconds = 77;
    sample(0, 0.25);
    EXPECT_EQ(stats.usage, 0.5);
    EXPECT_EQ(stats.user, 0.3);
    EXPECT_EQ(stats.system, 0.2);
    EXPECT_THAT(stats.perCore, ElementsAre(0.4, 0.6));
    EXPECT_EQ(stats.loadAvg, (LoadAverage{1, 2, 3}));
    EXPECT_EQ(stats.uptime, 77);
    EXPECT_EQ(stats.gpuUsage, 0.25);
}

TEST_F(CPUStageTest, EfficiencyCoresAreAtMostTheCores) {
    cpu.efficiencyCores = 4;
    cpu.figures.perCore = {0, 0};
    sample(0);
    EXPECT_EQ(stats.efficiencyCoreCount, 2);
    cpu.figures.perCore = {0, 0, 0, 0, 0, 0};
    sample(1);
    EXPECT_EQ(stats.efficiencyCoreCount, 4);
}

TEST_F(CPUStageTest, FailedReadGivesNoEfficiencyCoresForThatTick) {
    cpu.efficiencyCores = 4;
    cpu.figures.perCore = {0, 0, 0, 0, 0, 0};
    sample(0);
    cpu.figures.perCore.clear();
    sample(1);
    EXPECT_EQ(stats.efficiencyCoreCount, 0);
    cpu.figures.perCore = {0, 0, 0, 0, 0, 0};
    sample(2);
    EXPECT_EQ(stats.efficiencyCoreCount, 4);
}

TEST_F(CPUStageTest, TemperatureOfTheGroupsIsPreferred) {
    temperature.cpu = 50;
    sample(0, std::nullopt, {{TempCategory::gpu, 60}, {TempCategory::cpu, 45}});
    EXPECT_EQ(stats.temperature, 45.0);
    EXPECT_EQ(temperature.cpuTemperatureCount, 0);
}

TEST_F(CPUStageTest, TemperatureIsReadAloneIfNoGroupIsTheProcessors) {
    temperature.cpu = 50;
    sample(0, std::nullopt, {{TempCategory::gpu, 60}});
    EXPECT_EQ(stats.temperature, 50.0);
    temperature.cpu.reset();
    sample(1);
    EXPECT_EQ(stats.temperature, std::nullopt);
}

TEST_F(CPUStageTest, ShortSeriesGrowAtEverySampleUpToSixty) {
    for (int second = 0; second < 70; ++second) {
        cpu.figures.usage = second;
        cpu.figures.user = second + 0.25;
        cpu.figures.system = second + 0.5;
        sample(second, second + 0.75);
    }
    EXPECT_EQ(stats.history.size(), 60U);
    EXPECT_EQ(stats.history.front(), 10.0);
    EXPECT_EQ(stats.history.back(), 69.0);
    EXPECT_EQ(stats.userHistory.back(), 69.25);
    EXPECT_EQ(stats.systemHistory.back(), 69.5);
    EXPECT_EQ(stats.gpuHistory.back(), 69.75);
}

TEST_F(CPUStageTest, AbsentAcceleratorAddsNoPoint) {
    sample(0, 0.5);
    sample(1);
    EXPECT_THAT(points(stats.gpuHistory), ElementsAre(0.5));
    EXPECT_EQ(stats.gpuUsage, std::nullopt);
    EXPECT_EQ(stats.history.size(), 2U);
}

TEST_F(CPUStageTest, LongSeriesGrowEveryFiveSeconds) {
    for (int second = 0; second <= 10; ++second) {
        cpu.figures.user = second;
        cpu.figures.system = second + 0.5;
        cpu.load.one = second + 0.25;
        sample(second, second + 0.75);
    }
    EXPECT_THAT(points(stats.userLong), ElementsAre(0.0, 5.0, 10.0));
    EXPECT_THAT(points(stats.systemLong), ElementsAre(0.5, 5.5, 10.5));
    EXPECT_THAT(points(stats.loadLong), ElementsAre(0.25, 5.25, 10.25));
    EXPECT_THAT(points(stats.gpuLong), ElementsAre(0.75, 5.75, 10.75));
}

TEST_F(CPUStageTest, LongSeriesWithoutAcceleratorGrowAlone) {
    sample(0);
    EXPECT_EQ(stats.userLong.size(), 1U);
    EXPECT_THAT(points(stats.gpuLong), IsEmpty());
}

TEST_F(CPUStageTest, LongSeriesHoldFiveMinutes) {
    for (int second = 0; second < 400; second += 5) {
        cpu.figures.user = second;
        sample(second);
    }
    EXPECT_EQ(stats.userLong.size(), 60U);
    EXPECT_EQ(stats.userLong.front(), 100.0);
    EXPECT_EQ(stats.userLong.back(), 395.0);
}

TEST_F(CPUStageTest, CoresAreCopiedEveryFifteenSecondsUpToTwenty) {
    for (int second = 0; second < 15 * 25; second += 5) {
        cpu.figures.perCore = {static_cast<double>(second), 1.0};
        sample(second);
    }
    ASSERT_EQ(stats.perCoreLong.size(), 20U);
    EXPECT_THAT(stats.perCoreLong.front(), ElementsAre(75.0, 1.0));
    EXPECT_THAT(stats.perCoreLong.back(), ElementsAre(360.0, 1.0));
}

TEST_F(CPUStageTest, NoCoresAddNoPointAndDoNotStartTheirClock) {
    sample(0);
    EXPECT_EQ(stats.perCoreLong.size(), 0U);
    cpu.figures.perCore = {0.5};
    sample(1);
    EXPECT_EQ(stats.perCoreLong.size(), 1U);
}

TEST_F(CPUStageTest, CountsKeepTheirOldValuesWhenTheyCannotBeRead) {
    sample(0);
    EXPECT_EQ(stats.taskCount, std::nullopt);
    cpu.counts = TaskThreadCounts{300, 1200};
    sample(1);
    cpu.counts.reset();
    sample(2);
    EXPECT_EQ(stats.taskCount, 300);
    EXPECT_EQ(stats.threadCount, 1200);
}

}  // namespace
}  // namespace velmora
