#include "platform/linux/loop/BackgroundReading.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeWorkQueue.h"
#include "platform/linux/loop/ThreadWorkQueue.h"

#include <gtest/gtest.h>

#include <future>

namespace velmora {
namespace {

/// The loop's own virtual time.
class LoopClock final : public MonotonicClock {
public:
    explicit LoopClock(const FakeRunLoop& loop) : m_loop(loop) {}
    double seconds() const override { return m_loop.elapsed(); }

private:
    const FakeRunLoop& m_loop;
};

class BackgroundReadingTest : public testing::Test {
protected:
    const int* askAfter(double seconds) {
        runLoop.advance(seconds);
        return reading.latest();
    }

    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeWorkQueue queue;
    LoopClock monotonic{runLoop};
    int readings = 0;
    BackgroundReading<int> reading{queue, runLoop, monotonic, 0, [this](int& result) {
                                       result = ++readings;
                                       return 2.0;
                                   }};
};

TEST_F(BackgroundReadingTest, FirstQuestionHasNoAnswerAndStartsAReading) {
    EXPECT_EQ(reading.latest(), nullptr);
    EXPECT_EQ(queue.pendingCount(), 1U);
}

TEST_F(BackgroundReadingTest, NextQuestionGetsTheResultAndStartsTheNextReading) {
    reading.latest();
    queue.runAll();
    const int* result = askAfter(2);
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(*result, 1);
    EXPECT_EQ(queue.pendingCount(), 1U);
}

TEST_F(BackgroundReadingTest, QuestionsOftenerThanTheCadenceStartNothing) {
    reading.latest();
    queue.runAll();
    EXPECT_NE(askAfter(0.5), nullptr);
    EXPECT_NE(askAfter(0.5), nullptr);
    EXPECT_EQ(queue.pendingCount(), 0U);
    EXPECT_NE(askAfter(0.97), nullptr);
    EXPECT_EQ(queue.pendingCount(), 1U);
}

TEST_F(BackgroundReadingTest, ThereAreNeverTwoReadingsUnderWay) {
    for (int question = 0; question < 5; ++question) askAfter(2);
    EXPECT_EQ(queue.pendingCount(), 1U);
}

TEST_F(BackgroundReadingTest, ReadingThatHangsTakesTheAnswerAwayAfterThreeRefreshes) {
    reading.latest();
    queue.runAll();
    EXPECT_NE(askAfter(2), nullptr);  // The reading that this starts never ends.
    EXPECT_NE(askAfter(2), nullptr);
    EXPECT_NE(askAfter(2), nullptr);
    EXPECT_EQ(askAfter(2), nullptr);
    EXPECT_EQ(queue.pendingCount(), 1U);
    queue.runAll();
    EXPECT_EQ(askAfter(2), nullptr);  // What came so late was begun long ago.
    queue.runAll();
    EXPECT_NE(askAfter(2), nullptr);
}

TEST_F(BackgroundReadingTest, ResultFromBeforeAPauseIsNotGiven) {
    reading.latest();
    queue.runAll();
    askAfter(2);
    queue.runAll();
    EXPECT_EQ(askAfter(3600), nullptr);
    EXPECT_EQ(queue.pendingCount(), 1U);
}

TEST_F(BackgroundReadingTest, WhoAsksSeldomGetsAResultOfASecondAgo) {
    reading.latest();
    queue.runAll();
    askAfter(10);
    queue.runAll();
    askAfter(10);
    queue.runAll();
    const int before = readings;
    runLoop.advance(9);
    EXPECT_EQ(queue.runAll(), 1U);  // The next reading, ahead of the question.
    const int* result = askAfter(1);
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(*result, before + 1);
    EXPECT_EQ(queue.pendingCount(), 0U);
}

TEST_F(BackgroundReadingTest, TwoAskersInOneTickAreOneQuestion) {
    reading.latest();
    queue.runAll();
    for (int tick = 0; tick < 4; ++tick) {
        EXPECT_NE(askAfter(10), nullptr);
        EXPECT_NE(reading.latest(), nullptr);
        queue.runAll();
    }
}

TEST_F(BackgroundReadingTest, EndWhileAReadingIsUnderWayIsSafe) {
    int readsDone = 0;
    {
        BackgroundReading<int> gone(queue, runLoop, monotonic, 0, [&readsDone](int& result) {
            ++readsDone;
            result = 1;
            return 1.0;
        });
        gone.latest();
    }
    queue.runAll();
    EXPECT_EQ(readsDone, 1);
}

TEST_F(BackgroundReadingTest, PatientQuestionWaitsForTheFirstResult) {
    ThreadWorkQueue threads;
    constexpr double kLongerThanAnyTestMachineTakes = 20;
    BackgroundReading<int> patient(threads, runLoop, monotonic, kLongerThanAnyTestMachineTakes,
                                   [](int& result) {
                                       result = 7;
                                       return 2.0;
                                   });
    const int* result = patient.latest();
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(*result, 7);
}

TEST_F(BackgroundReadingTest, ReadingThatHangsIsWaitedForOnce) {
    std::promise<void> ending;
    ThreadWorkQueue threads;
    BackgroundReading<int> patient(threads, runLoop, monotonic, 0.01, [&ending](int&) {
        ending.get_future().wait();
        return 2.0;
    });
    const auto start = std::chrono::steady_clock::now();
    for (int question = 0; question < 100; ++question) {
        EXPECT_EQ(patient.latest(), nullptr);
        runLoop.advance(2);
    }
    // A hundred times the patience would be a whole second.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500));
    ending.set_value();
}

}  // namespace
}  // namespace velmora
