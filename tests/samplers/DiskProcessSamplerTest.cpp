#include "samplers/DiskProcessSampler.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeProcessSources.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeWorkQueue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

namespace velmora {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class DiskProcessSamplerTest : public testing::Test {
protected:
    void set(std::int32_t pid, std::uint64_t read, std::uint64_t written) {
        source->processes[pid] = ProcessCounters{read, written, 0};
        source->names[pid] = "p" + std::string(1, static_cast<char>('0' + pid % 10));
    }
    void startSample(int limit = 5) {
        result.reset();
        sampler.sample(limit, [this](std::vector<TopIOProcess> list) { result = std::move(list); });
    }
    void runWork() {
        do {
            loop.runPosted();
        } while (queue.runAll() > 0 || loop.postedCount() > 0);
    }
    /// A whole sample whose snapshot is taken now.
    std::vector<TopIOProcess> sample(int limit = 5) {
        startSample(limit);
        runWork();
        return result.value_or(std::vector<TopIOProcess>{{-1, "no answer", 0, 0}});
    }
    /// The first call with its pause.
    void takeBaseline() {
        startSample();
        runWork();
        loop.advance(0.7);
        runWork();
        ASSERT_TRUE(result);
    }

    std::shared_ptr<FakeProcessCounterSource> source = std::make_shared<FakeProcessCounterSource>();
    FakeClock clock;
    FakeRunLoop loop{clock};
    FakeWorkQueue queue;
    DiskProcessSampler sampler{source, clock, queue, loop};
    std::optional<std::vector<TopIOProcess>> result;
};

TEST_F(DiskProcessSamplerTest, FirstSampleIsTwoSnapshotsWithAPauseBetween) {
    set(1, 1000, 5000);
    startSample();
    EXPECT_EQ(source->walkCount, 0);  // Nothing on the caller's thread.
    runWork();
    EXPECT_EQ(source->walkCount, 1);
    EXPECT_FALSE(result);
    set(1, 1700, 5070);
    loop.advance(0.69);
    runWork();
    EXPECT_FALSE(result);
    loop.advance(0.01);
    runWork();
    EXPECT_EQ(source->walkCount, 2);
    ASSERT_TRUE(result);
    ASSERT_THAT(*result, SizeIs(1));
    EXPECT_THAT(result->front().incoming, DoubleNear(1000, 0.01));
    EXPECT_THAT(result->front().outgoing, DoubleNear(100, 0.01));
}

TEST_F(DiskProcessSamplerTest, LaterSampleIsOverTheTimeSinceTheLastCall) {
    set(1, 0, 0);
    takeBaseline();
    set(1, 4000, 0);
    loop.advance(2);
    EXPECT_THAT(sample(), ElementsAre(TopIOProcess{1, "p1", 2000, 0}));
    EXPECT_EQ(source->walkCount, 3);
}

TEST_F(DiskProcessSamplerTest, CallWithinATenthOfASecondIsEmptyAndMovesTheBaseline) {
    set(1, 0, 0);
    takeBaseline();
    set(1, 1'000'000, 0);
    loop.advance(0.05);
    EXPECT_THAT(sample(), IsEmpty());
    // What was read until then belongs to no interval any more.
    set(1, 1'000'100, 0);
    loop.advance(1);
    EXPECT_THAT(sample(), ElementsAre(TopIOProcess{1, "p1", 100, 0}));
}

TEST_F(DiskProcessSamplerTest, ClockThatWasSetBackGivesAnEmptyListOnce) {
    set(1, 0, 0);
    takeBaseline();
    set(1, 1000, 0);
    clock.advance(-3600);
    EXPECT_THAT(sample(), IsEmpty());
    set(1, 2000, 0);
    loop.advance(1);
    EXPECT_THAT(sample(), SizeIs(1));
}

TEST_F(DiskProcessSamplerTest, RisingReadsAndFallingWritesShowReadsAlone) {
    set(1, 0, 9000);
    takeBaseline();
    set(1, 1000, 10);
    loop.advance(1);
    EXPECT_THAT(sample(), ElementsAre(TopIOProcess{1, "p1", 1000, 0}));
}

TEST_F(DiskProcessSamplerTest, ProcessThatIsNewSinceTheBaselineIsLeftOut) {
    takeBaseline();
    set(1, 1'000'000, 0);
    loop.advance(1);
    EXPECT_THAT(sample(), IsEmpty());
}

TEST_F(DiskProcessSamplerTest, IdleProcessIsLeftOut) {
    set(1, 500, 500);
    takeBaseline();
    loop.advance(1);
    EXPECT_THAT(sample(), IsEmpty());
}

TEST_F(DiskProcessSamplerTest, ProcessThatExitedIsGone) {
    set(1, 0, 0);
    takeBaseline();
    source->processes.clear();
    loop.advance(1);
    EXPECT_THAT(sample(), IsEmpty());
}

TEST_F(DiskProcessSamplerTest, BusiestBySumComeFirstAndTiesStayInOrder) {
    for (int pid = 1; pid <= 4; ++pid) set(pid, 0, 0);
    takeBaseline();
    set(1, 100, 0);
    set(2, 50, 51);
    set(3, 0, 100);
    set(4, 10, 0);
    loop.advance(1);
    const auto list = sample(3);
    ASSERT_THAT(list, SizeIs(3));
    EXPECT_EQ(list[0].pid, 2);
    EXPECT_EQ(list[1].pid, 1);
    EXPECT_EQ(list[2].pid, 3);
}

TEST_F(DiskProcessSamplerTest, NoProcessTableGivesAnEmptyList) {
    source->answer = -1;
    takeBaseline();
    loop.advance(1);
    EXPECT_THAT(sample(), IsEmpty());
}

TEST(DiskProcessSamplerLifeTest, SampleUnderWayAtTheEndOfTheSamplerIsDropped) {
    const auto source = std::make_shared<FakeProcessCounterSource>();
    FakeClock clock;
    FakeRunLoop loop(clock);
    FakeWorkQueue queue;
    bool wasCalled = false;
    auto sampler = std::make_unique<DiskProcessSampler>(source, clock, queue, loop);
    sampler->sample(5, [&](auto) { wasCalled = true; });
    queue.runAll();
    sampler.reset();
    loop.advance(2);
    queue.runAll();
    loop.runPosted();
    EXPECT_FALSE(wasCalled);
}

}  // namespace
}  // namespace velmora
