#include "fakes/FakeRunLoop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

namespace velmora {
namespace {

using testing::ElementsAre;

// The virtual loop that other tests rest on must itself keep what the port promises.

class FakeRunLoopTest : public testing::Test {
protected:
    FakeClock clock;
    FakeRunLoop loop{clock};
    std::vector<double> fired;
    std::function<void()> noteTime = [this] { fired.push_back(loop.elapsed()); };
};

TEST_F(FakeRunLoopTest, PostedTasksRunLaterInOrder) {
    std::string order;
    loop.post([&] { order += "a"; });
    loop.post([&] {
        order += "b";
        loop.post([&] { order += "c"; });
    });
    EXPECT_EQ(order, "");
    EXPECT_EQ(loop.runPostedRound(), 2U);
    EXPECT_EQ(order, "ab");
    EXPECT_EQ(loop.runPosted(), 1U);
    EXPECT_EQ(order, "abc");
}

TEST_F(FakeRunLoopTest, TimersFireInOrderWhileTheClockMoves) {
    std::string order;
    const Subscription late = loop.after(3, [&] { order += "late "; });
    const Subscription early =
        loop.after(1, [&] { order += clock.now() == FakeClock::kStart + 1 ? "early " : "?"; });
    loop.advance(5);
    EXPECT_EQ(order, "early late ");
    EXPECT_EQ(clock.now(), FakeClock::kStart + 5);
    EXPECT_EQ(loop.timerCount(), 0U);
}

TEST_F(FakeRunLoopTest, RepeatingTimerFiresFirstAfterOnePeriod) {
    const Subscription timer = loop.every(2, noteTime);
    loop.advance(7);
    EXPECT_THAT(fired, ElementsAre(2, 4, 6));
}

TEST_F(FakeRunLoopTest, PeriodsThatPassedWhileTheThreadWasBusyAreSkipped) {
    const Subscription timer = loop.every(2, noteTime);
    loop.stall(7);
    loop.advance(2);
    EXPECT_THAT(fired, ElementsAre(7, 8));
}

TEST_F(FakeRunLoopTest, EndedHandleFiresNoMore) {
    Subscription timer = loop.every(2, noteTime);
    Subscription once = loop.after(3, noteTime);
    timer.reset();
    once.reset();
    loop.advance(10);
    EXPECT_TRUE(fired.empty());
}

TEST_F(FakeRunLoopTest, TimerMayReplaceItselfWhileItFires) {
    Subscription timer;
    timer = loop.every(1, [&] {
        noteTime();
        timer = loop.every(5, noteTime);
    });
    loop.advance(6);
    EXPECT_THAT(fired, ElementsAre(1, 6));
}

TEST_F(FakeRunLoopTest, JumpOfTheWallClockMovesNoTimer) {
    const Subscription timer = loop.after(3, noteTime);
    clock.advance(100);
    loop.advance(2);
    EXPECT_TRUE(fired.empty());
}

TEST_F(FakeRunLoopTest, WatchFiresForItsDescriptorOnly) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    int ready = 0;
    Subscription watching = loop.watch(ends[0], RunLoop::Readiness::readable, [&] { ++ready; });
    EXPECT_EQ(loop.pollWatches(std::chrono::milliseconds(0)), 0U);
    ASSERT_EQ(::write(ends[1], "x", 1), 1);
    EXPECT_EQ(loop.pollWatches(), 1U);
    EXPECT_EQ(loop.fireWatch(ends[0], RunLoop::Readiness::readable), 1U);
    EXPECT_EQ(loop.fireWatch(ends[0], RunLoop::Readiness::writable), 0U);
    EXPECT_EQ(ready, 2);
    watching.reset();
    EXPECT_EQ(loop.watcherCount(), 0U);
    ::close(ends[0]);
    ::close(ends[1]);
}

}  // namespace
}  // namespace velmora
