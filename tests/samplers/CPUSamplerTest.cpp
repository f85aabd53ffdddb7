#include "samplers/CPUSampler.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeProcessorSources.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

class CPUSamplerTest : public testing::Test {
protected:
    CPUFigures sample(const std::vector<CoreTicks>& cores) {
        ticks.fails = false;
        ticks.cores = cores;
        sampler.sample(figures);
        return figures;
    }
    CPUFigures sampleFailing() {
        ticks.fails = true;
        sampler.sample(figures);
        return figures;
    }

    FakeProcessorTicksSource ticks;
    FakeLoadAverageSource load;
    FakeBootTimeSource boot;
    FakeTaskCountSource tasks;
    FakePerformanceLevelSource levels;
    FakeClock clock;
    CPUSampler sampler{ticks, load, boot, tasks, levels, clock};
    CPUFigures figures{.usage = 9, .user = 9, .system = 9, .perCore = {9, 9, 9, 9, 9}};
};

TEST_F(CPUSamplerTest, FirstSampleGivesZerosForEveryCore) {
    const auto first = sample({{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 9, 9, 9}});
    EXPECT_EQ(first.usage, 0);
    EXPECT_EQ(first.user, 0);
    EXPECT_EQ(first.system, 0);
    EXPECT_EQ(first.perCore, (std::vector<double>{0, 0, 0}));
}

TEST_F(CPUSamplerTest, SecondSampleGivesTheSharesOfTheTimeBetween) {
    sample({{.user = 100, .system = 50, .idle = 1000, .nice = 0},
            {.user = 0, .system = 0, .idle = 0, .nice = 0}});
    const auto second = sample({{.user = 130, .system = 70, .idle = 1050, .nice = 0},
                                {.user = 10, .system = 0, .idle = 90, .nice = 0}});
    EXPECT_DOUBLE_EQ(second.perCore[0], 0.5);
    EXPECT_DOUBLE_EQ(second.perCore[1], 0.1);
    EXPECT_DOUBLE_EQ(second.user, 40.0 / 200);
    EXPECT_DOUBLE_EQ(second.system, 20.0 / 200);
    EXPECT_DOUBLE_EQ(second.usage, 60.0 / 200);
}

TEST_F(CPUSamplerTest, CounterThatWrappedGivesTheSmallDelta) {
    sample({{.user = 0xFFFFFFF0, .system = 0, .idle = 0, .nice = 0}});
    // 32 ticks of user time among 64.
    EXPECT_DOUBLE_EQ(sample({{.user = 0x00000010, .system = 0, .idle = 32, .nice = 0}}).usage, 0.5);
}

TEST_F(CPUSamplerTest, IdleCounterThatWrappedGivesTheSmallDelta) {
    sample({{.user = 0, .system = 0, .idle = 0xFFFFFFF0, .nice = 0}});
    EXPECT_DOUBLE_EQ(sample({{.user = 32, .system = 0, .idle = 0x00000010, .nice = 0}}).usage, 0.5);
}

TEST_F(CPUSamplerTest, CoreThatStoodStillGivesZeroWhileTheOthersCount) {
    sample({{1, 1, 1, 1}, {0, 0, 0, 0}});
    const auto second = sample({{1, 1, 1, 1}, {5, 0, 5, 0}});
    EXPECT_EQ(second.perCore[0], 0);
    EXPECT_DOUBLE_EQ(second.perCore[1], 0.5);
    EXPECT_DOUBLE_EQ(second.usage, 0.5);
}

TEST_F(CPUSamplerTest, AllCoresThatStoodStillGiveZeroTotals) {
    sample({{1, 1, 1, 1}, {2, 2, 2, 2}});
    const auto second = sample({{1, 1, 1, 1}, {2, 2, 2, 2}});
    EXPECT_EQ(second.usage, 0);
    EXPECT_EQ(second.user, 0);
    EXPECT_EQ(second.system, 0);
    EXPECT_EQ(second.perCore, (std::vector<double>{0, 0}));
}

TEST_F(CPUSamplerTest, NiceTimeIsTheUsersAndNeverTheSystems) {
    sample({{0, 0, 0, 0}});
    const auto second = sample({{.user = 0, .system = 0, .idle = 50, .nice = 50}});
    EXPECT_DOUBLE_EQ(second.user, 0.5);
    EXPECT_DOUBLE_EQ(second.usage, 0.5);
    EXPECT_EQ(second.system, 0);
}

TEST_F(CPUSamplerTest, AnotherNumberOfCoresGivesZerosOnce) {
    sample({{0, 0, 0, 0}});
    const auto changed = sample({{50, 0, 50, 0}, {50, 0, 50, 0}});
    EXPECT_EQ(changed.usage, 0);
    EXPECT_EQ(changed.perCore, (std::vector<double>{0, 0}));
    EXPECT_DOUBLE_EQ(sample({{60, 0, 50, 0}, {50, 0, 60, 0}}).usage, 0.5);
}

TEST_F(CPUSamplerTest, FailedReadGivesZerosAndNoCores) {
    sample({{0, 0, 0, 0}});
    sample({{50, 0, 50, 0}});
    const auto failed = sampleFailing();
    EXPECT_EQ(failed.usage, 0);
    EXPECT_EQ(failed.user, 0);
    EXPECT_EQ(failed.system, 0);
    EXPECT_TRUE(failed.perCore.empty());
}

TEST_F(CPUSamplerTest, ReadAfterAFailureSpansTheGap) {
    sample({{0, 0, 0, 0}});
    sampleFailing();
    const auto after = sample({{30, 0, 70, 0}});
    EXPECT_DOUBLE_EQ(after.usage, 0.3);
    EXPECT_EQ(after.perCore.size(), 1U);
}

TEST_F(CPUSamplerTest, LongPauseGivesOneDeltaOverAllOfIt) {
    sample({{.user = 10, .system = 10, .idle = 10, .nice = 10}});
    // Three hours of one core, a quarter of it at work.
    const auto after = sample({{.user = 270'010, .system = 10, .idle = 810'010, .nice = 10}});
    EXPECT_DOUBLE_EQ(after.usage, 0.25);
}

TEST_F(CPUSamplerTest, SharesOfAllCoresAreWeightedByTheirTicks) {
    // A core that was switched on for a moment only counts for that moment.
    sample({{0, 0, 0, 0}, {0, 0, 0, 0}});
    const auto second = sample(
        {{.user = 0, .system = 0, .idle = 190, .nice = 0}, {.user = 5, .system = 5, .idle = 0, .nice = 0}});
    EXPECT_DOUBLE_EQ(second.usage, 10.0 / 200);
    EXPECT_DOUBLE_EQ(second.perCore[1], 1);
}

TEST_F(CPUSamplerTest, LoadAverageIsPassedOn) {
    load.load = {1.5, 2.5, 3.5};
    EXPECT_EQ(sampler.loadAverage(), (LoadAverage{1.5, 2.5, 3.5}));
}

TEST_F(CPUSamplerTest, UptimeIsTheTimeSinceTheBoot) {
    boot.seconds = static_cast<std::int64_t>(FakeClock::kStart.secondsSince1970) - 3600;
    clock.advance(0.25);
    EXPECT_DOUBLE_EQ(sampler.uptime(), 3600.25);
}

TEST_F(CPUSamplerTest, UptimeFollowsAClockThatIsSet) {
    boot.seconds = static_cast<std::int64_t>(FakeClock::kStart.secondsSince1970) - 3600;
    clock.advance(100);
    EXPECT_DOUBLE_EQ(sampler.uptime(), 3700);
}

TEST_F(CPUSamplerTest, BootTimeOfZeroGivesUptimeZero) {
    boot.seconds = 0;
    EXPECT_EQ(sampler.uptime(), 0);
}

TEST_F(CPUSamplerTest, BootTimeOfOneSecondIsOne) {
    boot.seconds = 1;
    EXPECT_DOUBLE_EQ(sampler.uptime(), FakeClock::kStart.secondsSince1970 - 1);
}

TEST_F(CPUSamplerTest, NegativeBootTimeGivesUptimeZero) {
    boot.seconds = -5;
    EXPECT_EQ(sampler.uptime(), 0);
}

TEST_F(CPUSamplerTest, UnknownBootTimeGivesUptimeZero) {
    EXPECT_EQ(sampler.uptime(), 0);
}

TEST_F(CPUSamplerTest, UnknownCountsStayAbsent) {
    EXPECT_EQ(sampler.taskThreadCounts(), std::nullopt);
}

TEST_F(CPUSamplerTest, CountsArePassedOn) {
    tasks.counts = TaskThreadCounts{80, 300};
    EXPECT_EQ(sampler.taskThreadCounts(), (TaskThreadCounts{80, 300}));
}

}  // namespace
}  // namespace velmora
