#include "platform/qt/QtRunLoop.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QMenu>
#include <QTimer>

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace velmora {
namespace {

/// Turns the event loop until the condition holds; false when ten seconds are over.
bool waitUntil(const std::function<bool()>& condition) {
    const QDeadlineTimer deadline(10'000);
    // An idle event loop wakes for timers and posts alone; this one lets the deadline be seen.
    QTimer waker;
    waker.start(1000);
    while (!condition() && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return condition();
}

void keepThreadBusy(int milliseconds) {
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < milliseconds) continue;
}

TEST(QtRunLoopPost, TasksRunLaterInTheOrderOfPosting) {
    QtRunLoop loop;
    std::vector<int> order;
    loop.post([&] { order.push_back(1); });
    loop.post([&] { order.push_back(2); });
    loop.post([&] { order.push_back(3); });
    EXPECT_TRUE(order.empty());
    ASSERT_TRUE(waitUntil([&] { return order.size() == 3; }));
    EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
}

TEST(QtRunLoopPost, WhatAPostedTaskHoldsGoesOnTheLoopsThread) {
    constexpr int kTasks = 5000;
    QtRunLoop loop;
    int ended = 0;
    int endedElsewhere = 0;
    const std::thread::id own = std::this_thread::get_id();
    std::mutex mutex;
    std::thread poster([&] {
        for (int posted = 0; posted < kTasks; ++posted) {
            // Nobody but the task holds it, from the posting on.
            loop.post([held = std::shared_ptr<int>(new int(), [&](const int* pointer) {
                           const std::lock_guard lock(mutex);
                           ++ended;
                           if (std::this_thread::get_id() != own) ++endedElsewhere;
                           delete pointer;
                       })] {});
        }
    });
    EXPECT_TRUE(waitUntil([&] {
        const std::lock_guard lock(mutex);
        return ended == kTasks;
    }));
    poster.join();
    EXPECT_EQ(endedElsewhere, 0);
}

TEST(QtRunLoopPost, TaskThatPostsIsNotReenteredAtOnce) {
    QtRunLoop loop;
    std::vector<int> order;
    loop.post([&] {
        loop.post([&] { order.push_back(2); });
        order.push_back(1);
    });
    ASSERT_TRUE(waitUntil([&] { return order.size() == 2; }));
    EXPECT_EQ(order, (std::vector<int>{1, 2}));
}

TEST(QtRunLoopPost, AnyThreadMayPostAndTheTaskRunsOnTheMainThread) {
    QtRunLoop loop;
    std::thread::id ranOn;
    std::thread poster([&] { loop.post([&] { ranOn = std::this_thread::get_id(); }); });
    poster.join();
    ASSERT_TRUE(waitUntil([&] { return ranOn != std::thread::id(); }));
    EXPECT_EQ(ranOn, std::this_thread::get_id());
}

TEST(QtRunLoopPost, TasksGoOnInsideANestedLoop) {
    QtRunLoop loop;
    bool insideRan = false;
    bool outerEnded = false;
    loop.post([&] {
        QEventLoop nested;
        loop.post([&] {
            insideRan = true;
            nested.quit();
        });
        nested.exec();
        outerEnded = true;
    });
    ASSERT_TRUE(waitUntil([&] { return outerEnded; }));
    EXPECT_TRUE(insideRan);
}

TEST(QtRunLoopPost, TasksOfADestroyedLoopAreDropped) {
    bool ran = false;
    {
        QtRunLoop().post([&] { ran = true; });
    }
    QtRunLoop later;
    bool laterRan = false;
    later.post([&] { laterRan = true; });
    ASSERT_TRUE(waitUntil([&] { return laterRan; }));
    EXPECT_FALSE(ran);
}

TEST(QtRunLoopAfter, TaskRunsOnceAndNotEarly) {
    QtRunLoop loop;
    int runs = 0;
    qint64 ranAt = 0;
    QElapsedTimer time;
    time.start();
    const auto timer = loop.after(0.05, [&] {
        ++runs;
        ranAt = time.elapsed();
    });
    bool laterRan = false;
    const auto later = loop.after(0.15, [&] { laterRan = true; });
    ASSERT_TRUE(waitUntil([&] { return laterRan; }));
    EXPECT_EQ(runs, 1);
    EXPECT_GE(ranAt, 48);
}

TEST(QtRunLoopAfter, NoTimeIsTheNextTurn) {
    QtRunLoop loop;
    bool ran = false;
    const auto timer = loop.after(0, [&] { ran = true; });
    EXPECT_FALSE(ran);
    EXPECT_TRUE(waitUntil([&] { return ran; }));
}

TEST(QtRunLoopAfter, EndedHandleCancels) {
    QtRunLoop loop;
    bool ran = false;
    bool laterRan = false;
    {
        const auto timer = loop.after(0.01, [&] { ran = true; });
    }
    const auto later = loop.after(0.05, [&] { laterRan = true; });
    ASSERT_TRUE(waitUntil([&] { return laterRan; }));
    EXPECT_FALSE(ran);
}

TEST(QtRunLoopAfter, HandleMayEndInsideItsOwnTask) {
    QtRunLoop loop;
    Subscription timer;
    auto held = std::make_shared<int>(7);
    int seen = 0;
    timer = loop.after(0.001, [&, held] {
        timer.reset();
        seen = *held;  // What the task holds stays until it returns.
    });
    ASSERT_TRUE(waitUntil([&] { return seen == 7; }));
    EXPECT_EQ(held.use_count(), 1);
}

TEST(QtRunLoopAfter, TaskMayStartAnotherUnderTheSameHandle) {
    QtRunLoop loop;
    Subscription timer;
    int runs = 0;
    std::function<void()> task = [&] {
        if (++runs < 3) timer = loop.after(0.001, task);
    };
    timer = loop.after(0.001, task);
    EXPECT_TRUE(waitUntil([&] { return runs == 3; }));
}

TEST(QtRunLoopEvery, FirstRunIsAfterOnePeriod) {
    QtRunLoop loop;
    QElapsedTimer time;
    time.start();
    std::vector<qint64> runs;
    const auto timer = loop.every(0.05, [&] { runs.push_back(time.elapsed()); });
    ASSERT_TRUE(waitUntil([&] { return runs.size() == 4; }));
    EXPECT_GE(runs[0], 48);
    for (std::size_t run = 0; run < runs.size(); ++run) {
        // Precise timers do not drift: each run is at its own multiple of the period, or late.
        EXPECT_GE(runs[run], 50 * static_cast<qint64>(run + 1) - 2);
    }
}

TEST(QtRunLoopEvery, PeriodsThatPassedWhileTheThreadWasBusyAreSkipped) {
    QtRunLoop loop;
    int runs = 0;
    const auto timer = loop.every(0.02, [&] { ++runs; });
    keepThreadBusy(130);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_GE(runs, 1);
    EXPECT_LE(runs, 2);
}

TEST(QtRunLoopEvery, HandleMayEndInsideItsOwnTask) {
    QtRunLoop loop;
    Subscription timer;
    int runs = 0;
    timer = loop.every(0.001, [&] {
        ++runs;
        timer.reset();
    });
    bool laterRan = false;
    const auto later = loop.after(0.05, [&] { laterRan = true; });
    ASSERT_TRUE(waitUntil([&] { return laterRan; }));
    EXPECT_EQ(runs, 1);
}

TEST(QtRunLoopEvery, TimersGoOnWhileAMenuIsOpen) {
    QtRunLoop loop;
    QMenu menu;
    menu.addAction("Entry");
    int runs = 0;
    const auto timer = loop.every(0.005, [&] {
        if (++runs == 3) menu.close();
    });
    menu.exec(QPoint(10, 10));
    EXPECT_GE(runs, 3);
}

TEST(QtRunLoopTimers, OnesThatAreStartedBeforeThereIsAnEventLoopRunOnceItTurns) {
    // A thread has no event dispatcher until somebody makes a loop on it, as the main thread before the
    // application object.
    int ran = 0;
    int cancelledRan = 0;
    int repeats = 0;
    qint64 ranAt = 0;
    std::thread thread([&] {
        QtRunLoop loop;
        QElapsedTimer time;
        time.start();
        const auto timer = loop.after(0.05, [&] {
            ++ran;
            ranAt = time.elapsed();
        });
        {
            const auto cancelled = loop.after(0.01, [&] { ++cancelledRan; });
        }
        keepThreadBusy(30);
        QEventLoop turning;
        const auto repeating = loop.every(0.01, [&] {
            if (++repeats == 5) turning.quit();
        });
        turning.exec();
    });
    thread.join();
    EXPECT_EQ(ran, 1);
    EXPECT_EQ(cancelledRan, 0);
    EXPECT_EQ(repeats, 5);
    EXPECT_GE(ranAt, 48);
}

TEST(QtRunLoopTimers, ADescriptorThatIsWatchedBeforeThereIsAnEventLoopIsHeardOnceItTurns) {
    // A notifier that is made enabled at that time stays deaf: a change of the stored values by another
    // process was never noticed.
    int heard = 0;
    std::thread thread([&] {
        std::array<int, 2> ends{};
        ASSERT_EQ(::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK), 0);
        QtRunLoop loop;
        std::function<void()> quit;
        const auto watch = loop.watch(ends[0], RunLoop::Readiness::readable, [&] {
            ++heard;
            quit();
        });
        ASSERT_EQ(::write(ends[1], "x", 1), 1);
        QEventLoop turning;
        quit = [&turning] { turning.quit(); };
        const auto limit = loop.after(10, [&turning] { turning.quit(); });
        turning.exec();
        ::close(ends[0]);
        ::close(ends[1]);
    });
    thread.join();
    EXPECT_EQ(heard, 1);
}

TEST(QtRunLoopTimers, HandleMayOutliveItsLoop) {
    Subscription timer;
    Subscription watcher;
    {
        QtRunLoop loop;
        timer = loop.every(0.001, [] {});
        watcher = loop.watch(STDIN_FILENO, RunLoop::Readiness::exceptional, [] {});
    }
    timer.reset();
    watcher.reset();
}

TEST(QtRunLoopTimers, EndedOnesAreReleased) {
    QtRunLoop loop;
    auto held = std::make_shared<int>(1);
    auto timer = loop.every(60, [held] {});
    EXPECT_EQ(held.use_count(), 2);
    timer.reset();
    EXPECT_EQ(held.use_count(), 1);
}

class QtRunLoopWatch : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, ends), 0);
    }
    void TearDown() override {
        ::close(ends[0]);
        ::close(ends[1]);
    }
    void say(char letter) const { ASSERT_EQ(::write(ends[1], &letter, 1), 1); }
    char hear() const {
        char letter = 0;
        return ::read(ends[0], &letter, 1) == 1 ? letter : '\0';
    }

    int ends[2] = {-1, -1};
    QtRunLoop loop;
};

TEST_F(QtRunLoopWatch, ReadableDescriptorRunsTheTaskEachTime) {
    std::string heard;
    const auto watcher = loop.watch(ends[0], RunLoop::Readiness::readable, [&] { heard.push_back(hear()); });
    say('a');
    ASSERT_TRUE(waitUntil([&] { return heard == "a"; }));
    say('b');
    EXPECT_TRUE(waitUntil([&] { return heard == "ab"; }));
}

TEST_F(QtRunLoopWatch, WritableDescriptorRunsTheTask) {
    bool ran = false;
    Subscription watcher;
    watcher = loop.watch(ends[0], RunLoop::Readiness::writable, [&] {
        ran = true;
        watcher.reset();
    });
    EXPECT_TRUE(waitUntil([&] { return ran; }));
}

TEST_F(QtRunLoopWatch, ClosedPeerMakesTheDescriptorReadable) {
    bool ran = false;
    Subscription watcher;
    watcher = loop.watch(ends[0], RunLoop::Readiness::readable, [&] {
        ran = true;
        watcher.reset();
    });
    ::shutdown(ends[1], SHUT_RDWR);
    EXPECT_TRUE(waitUntil([&] { return ran; }));
}

TEST_F(QtRunLoopWatch, EndedHandleHearsNothingMore) {
    int runs = 0;
    auto watcher = loop.watch(ends[0], RunLoop::Readiness::readable, [&] {
        ++runs;
        hear();
    });
    watcher.reset();
    say('a');
    bool laterRan = false;
    const auto later = loop.after(0.02, [&] { laterRan = true; });
    ASSERT_TRUE(waitUntil([&] { return laterRan; }));
    EXPECT_EQ(runs, 0);
}

TEST_F(QtRunLoopWatch, HandleMayEndAndTheDescriptorCloseInsideTheTask) {
    Subscription watcher;
    int runs = 0;
    watcher = loop.watch(ends[0], RunLoop::Readiness::readable, [&] {
        ++runs;
        watcher.reset();
        ::close(ends[0]);
        ends[0] = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    });
    say('a');
    bool laterRan = false;
    const auto later = loop.after(0.05, [&] { laterRan = true; });
    ASSERT_TRUE(waitUntil([&] { return laterRan; }));
    EXPECT_EQ(runs, 1);
}

}  // namespace
}  // namespace velmora
