#include "core/MemoryStage.h"

#include "core/SeriesPoints.h"
#include "fakes/FakeSamplers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MemoryStageTest : public testing::Test {
protected:
    MemoryStageTest() {
        memory.figures.total = 1000;
        memory.figures.used = 500;
        memory.figures.app = 250;
        memory.figures.pressure = 0.4;
        processes.answer = {{{"browser", 2.5}, {"editor", 1.5}}, 300, 9.5};
    }

    FakeMemorySampler memory;
    FakeProcessFootprintSampler processes;
    MemoryStage stage{memory, processes};
    MemoryStats stats;
};

TEST_F(MemoryStageTest, FiguresAndElapsedTimePassThrough) {
    stage.sample(Date{0}, 2.5, stats);
    EXPECT_THAT(memory.intervals, ElementsAre(2.5));
    EXPECT_EQ(stats.used, 500U);
    EXPECT_EQ(stats.pressure, 0.4);
}

TEST_F(MemoryStageTest, ShortSeriesGrowAtEverySample) {
    stage.sample(Date{0}, 0, stats);
    memory.figures.used = 750;
    memory.figures.pressure = 0.5;
    stage.sample(Date{1}, 1, stats);
    EXPECT_THAT(points(stats.history), ElementsAre(0.5, 0.75));
    EXPECT_THAT(points(stats.pressureHistory), ElementsAre(0.4, 0.5));
    for (int second = 2; second < 100; ++second) stage.sample(Date{second * 1.0}, 1, stats);
    EXPECT_EQ(stats.history.size(), 60U);
    EXPECT_EQ(stats.pressureHistory.size(), 60U);
}

TEST_F(MemoryStageTest, UnknownTotalGivesZeros) {
    memory.figures.total = 0;
    stage.sample(Date{0}, 0, stats);
    EXPECT_THAT(points(stats.history), ElementsAre(0.0));
    EXPECT_THAT(points(stats.usedLong), ElementsAre(0.0));
    EXPECT_THAT(points(stats.appLong), ElementsAre(0.0));
}

TEST_F(MemoryStageTest, LongSeriesAndTheProcessWalkComeEveryTenSeconds) {
    for (int second = 0; second <= 20; ++second) stage.sample(Date{second * 1.0}, 1, stats);
    EXPECT_THAT(points(stats.usedLong), ElementsAre(0.5, 0.5, 0.5));
    EXPECT_THAT(points(stats.appLong), ElementsAre(0.25, 0.25, 0.25));
    EXPECT_THAT(processes.limits, ElementsAre(8, 8, 8));
}

TEST_F(MemoryStageTest, LongSeriesHoldAnHour) {
    for (int step = 0; step < 370; ++step) {
        memory.figures.used = static_cast<std::uint64_t>(step);
        stage.sample(Date{step * 10.0}, 10, stats);
    }
    EXPECT_EQ(stats.usedLong.size(), 360U);
    EXPECT_EQ(stats.usedLong.front(), 0.010);
    EXPECT_EQ(stats.appLong.size(), 360U);
}

TEST_F(MemoryStageTest, ProcessesCarryOverBetweenWalks) {
    stage.sample(Date{0}, 0, stats);
    processes.answer = {{{"other", 3.0}}, 1, 3.0};
    stage.sample(Date{5}, 5, stats);
    EXPECT_THAT(stats.topProcs, ElementsAre(MemoryProcess{"browser", 2.5}, MemoryProcess{"editor", 1.5}));
    EXPECT_EQ(stats.topProcsTotal, 300);
    EXPECT_EQ(stats.topProcsSumGB, 9.5);
    stage.sample(Date{10}, 5, stats);
    EXPECT_THAT(stats.topProcs, ElementsAre(MemoryProcess{"other", 3.0}));
    EXPECT_EQ(stats.topProcsTotal, 1);
    EXPECT_EQ(stats.topProcsSumGB, 3.0);
}

TEST_F(MemoryStageTest, ListThatCameTooLateForItsQuestionIsTakenAtTheNextSample) {
    const MemoryTop list = processes.answer;
    processes.answer = {};
    stage.sample(Date{0}, 0, stats);
    EXPECT_THAT(stats.topProcs, IsEmpty());
    stage.sample(Date{1}, 1, stats);
    EXPECT_THAT(processes.limits, ElementsAre(8)) << "nothing has come yet";
    processes.answer = list;
    processes.isLate = true;
    stage.sample(Date{2}, 1, stats);
    EXPECT_THAT(stats.topProcs, ElementsAre(MemoryProcess{"browser", 2.5}, MemoryProcess{"editor", 1.5}));
    EXPECT_EQ(stats.topProcsTotal, 300);
    EXPECT_THAT(points(stats.usedLong), ElementsAre(0.5)) << "the long series keep their pace";
    stage.sample(Date{9}, 7, stats);
    stage.sample(Date{10}, 1, stats);
    EXPECT_THAT(processes.limits, ElementsAre(8, 8, 8)) << "and so do the walks";
}

}  // namespace
}  // namespace velmora
