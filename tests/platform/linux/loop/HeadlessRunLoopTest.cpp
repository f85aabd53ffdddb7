#include "platform/linux/loop/HeadlessRunLoop.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <limits>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace velmora {
namespace {

double nowSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

class HeadlessRunLoopTest : public testing::Test {
protected:
    /// Ends a test that would wait for ever.
    HeadlessRunLoopTest() {
        m_limit = loop.after(20, [this] {
            ADD_FAILURE() << "nothing more happened";
            loop.quit();
        });
    }

    HeadlessRunLoop loop;

private:
    Subscription m_limit;
};

struct Pipe {
    Pipe() { EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK), 0); }
    ~Pipe() {
        closeReader();
        ::close(ends[1]);
    }
    void closeReader() {
        if (ends[0] >= 0) ::close(ends[0]);
        ends[0] = -1;
    }
    std::array<int, 2> ends{};
};

TEST_F(HeadlessRunLoopTest, PostedTasksRunInOrder) {
    std::vector<int> order;
    loop.post([&] { order.push_back(1); });
    loop.post([&] { order.push_back(2); });
    loop.post([&] { loop.quit(); });
    EXPECT_TRUE(order.empty());
    loop.run();
    EXPECT_EQ(order, (std::vector<int>{1, 2}));
}

TEST_F(HeadlessRunLoopTest, TaskPostedByATaskRunsLater) {
    std::vector<int> order;
    loop.post([&] {
        loop.post([&] {
            order.push_back(3);
            loop.quit();
        });
        order.push_back(1);
    });
    loop.post([&] { order.push_back(2); });
    loop.run();
    EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
}

TEST_F(HeadlessRunLoopTest, OtherThreadsMayPost) {
    const auto main = std::this_thread::get_id();
    std::optional<std::thread::id> ranOn;
    std::thread other([&] {
        loop.post([&] {
            ranOn = std::this_thread::get_id();
            loop.quit();
        });
    });
    loop.run();
    other.join();
    EXPECT_EQ(ranOn, main);
}

TEST_F(HeadlessRunLoopTest, QuitBeforeRunReturnsAtOnce) {
    bool ran = false;
    loop.post([&] { ran = true; });
    loop.quit();
    loop.run();
    EXPECT_FALSE(ran);
}

TEST_F(HeadlessRunLoopTest, TasksBehindQuitRunInTheNextRun) {
    std::vector<int> order;
    loop.post([&] { loop.quit(); });
    loop.post([&] { order.push_back(1); });
    loop.post([&] {
        order.push_back(2);
        loop.quit();
    });
    loop.run();
    EXPECT_TRUE(order.empty());
    loop.run();
    EXPECT_EQ(order, (std::vector<int>{1, 2}));
}

TEST_F(HeadlessRunLoopTest, DelayedTaskRunsOnceAndNotEarly) {
    const double start = nowSeconds();
    int runs = 0;
    const Subscription once = loop.after(0.02, [&] {
        ++runs;
        EXPECT_GE(nowSeconds() - start, 0.02);
    });
    const Subscription end = loop.after(0.06, [&] { loop.quit(); });
    loop.run();
    EXPECT_EQ(runs, 1);
}

TEST_F(HeadlessRunLoopTest, DelayOfNothingStillRuns) {
    const Subscription now = loop.after(0, [&] { loop.quit(); });
    loop.run();
}

TEST_F(HeadlessRunLoopTest, RepeatedTaskRunsOncePerPeriodAndNeverEarly) {
    constexpr double kPeriod = 0.01;
    const double start = nowSeconds();
    int runs = 0;
    const Subscription every = loop.every(kPeriod, [&] {
        ++runs;
        EXPECT_GE(nowSeconds() - start, runs * kPeriod - 1e-6);
        if (runs == 5) loop.quit();
    });
    loop.run();
    EXPECT_EQ(runs, 5);
}

TEST_F(HeadlessRunLoopTest, PeriodsThatPassWhileBusyAreSkipped) {
    constexpr double kPeriod = 0.01;
    const double start = nowSeconds();
    std::vector<double> times;
    const Subscription every = loop.every(kPeriod, [&] {
        times.push_back(nowSeconds() - start);
        while (times.size() == 1 && nowSeconds() - start < 5.5 * kPeriod) {
        }
        if (times.size() == 3) loop.quit();
    });
    loop.run();
    // The first task keeps the thread busy beyond period 5: these count as one, and then period 6 comes.
    EXPECT_GE(times[1], 5.5 * kPeriod);
    EXPECT_GE(times[2], 6 * kPeriod);
}

TEST_F(HeadlessRunLoopTest, HandleThatIsGoneEndsTheTimer) {
    int runs = 0;
    Subscription every = loop.every(0.005, [&] {
        ++runs;
        every.reset();
    });
    const Subscription end = loop.after(0.03, [&] { loop.quit(); });
    loop.run();
    EXPECT_EQ(runs, 1);
}

TEST_F(HeadlessRunLoopTest, PeriodThatIsNotANumberRepeatsAsTheShortestDoes) {
    for (const double period : {std::numeric_limits<double>::quiet_NaN(), 0.0, -1.0}) {
        int runs = 0;
        const Subscription every = loop.every(period, [&] {
            if (++runs == 3) loop.quit();
        });
        loop.run();
        EXPECT_EQ(runs, 3) << period;
    }
}

TEST_F(HeadlessRunLoopTest, PeriodBeyondAllMeasureNeverComes) {
    for (const double period : {1e300, std::numeric_limits<double>::infinity()}) {
        const Subscription every = loop.every(period, [] { FAIL(); });
        const Subscription after = loop.after(period, [] { FAIL(); });
        const Subscription end = loop.after(0.01, [&] { loop.quit(); });
        loop.run();
    }
}

TEST_F(HeadlessRunLoopTest, TimerWhoseTaskHoldsOtherHandlesEndsThemToo) {
    int runs = 0;
    std::vector<std::shared_ptr<Subscription>> held;
    for (int timer = 0; timer < 20; ++timer)
        held.push_back(std::make_shared<Subscription>(loop.every(0.001, [&] { ++runs; })));
    Subscription holder = loop.every(0.001, [held] {});
    held.clear();
    holder.reset();
    const Subscription end = loop.after(0.01, [&] { loop.quit(); });
    loop.run();
    EXPECT_EQ(runs, 0);
}

TEST_F(HeadlessRunLoopTest, TimerEndedByAnotherTaskOfTheSameRoundDoesNotRun) {
    int runs = 0;
    Subscription first;
    Subscription second;
    first = loop.after(0.01, [&] {
        ++runs;
        second.reset();
    });
    second = loop.after(0.01, [&] {
        ++runs;
        first.reset();
    });
    // Both are due before the loop looks.
    const double start = nowSeconds();
    while (nowSeconds() - start < 0.02) {
    }
    const Subscription end = loop.after(0.01, [&] { loop.quit(); });
    loop.run();
    EXPECT_EQ(runs, 1);
}

TEST_F(HeadlessRunLoopTest, ReadableDescriptorRunsItsTask) {
    Pipe pipe;
    const Subscription watch = loop.watch(pipe.ends[0], RunLoop::Readiness::readable, [&] { loop.quit(); });
    ASSERT_EQ(::write(pipe.ends[1], "x", 1), 1);
    loop.run();
}

TEST_F(HeadlessRunLoopTest, OneDescriptorMayBeWatchedTwice) {
    Pipe pipe;
    int runs = 0;
    const auto task = [&] {
        if (++runs == 2) loop.quit();
    };
    Subscription first = loop.watch(pipe.ends[1], RunLoop::Readiness::writable, [&] {
        first.reset();
        task();
    });
    Subscription second = loop.watch(pipe.ends[1], RunLoop::Readiness::writable, [&] {
        second.reset();
        task();
    });
    loop.run();
    EXPECT_EQ(runs, 2);
}

TEST_F(HeadlessRunLoopTest, WatchThatIsGoneRunsNothing) {
    Pipe pipe;
    Subscription watch = loop.watch(pipe.ends[1], RunLoop::Readiness::writable, [] { FAIL(); });
    watch.reset();
    const Subscription end = loop.after(0.01, [&] { loop.quit(); });
    loop.run();
}

TEST_F(HeadlessRunLoopTest, PipeWithoutAReaderIsExceptional) {
    Pipe pipe;
    const Subscription watch =
        loop.watch(pipe.ends[1], RunLoop::Readiness::exceptional, [&] { loop.quit(); });
    loop.post([&] { pipe.closeReader(); });
    loop.run();
}

TEST_F(HeadlessRunLoopTest, HandlesMayOutliveTheLoop) {
    Subscription timer;
    {
        HeadlessRunLoop other;
        timer = other.every(1, [] {});
    }
    timer.reset();
}

}  // namespace
}  // namespace velmora
