#include "platform/linux/graphics/LinuxAcceleratorSource.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeWorkQueue.h"
#include "platform/linux/files/SystemTree.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

class LinuxAcceleratorSourceTest : public testing::Test {
protected:
    LinuxAcceleratorSourceTest() {
        tree.link("sys/class/drm/card0/device/driver", "../../../bus/pci/drivers/amdgpu");
        setPercent("10");
    }
    void setPercent(const std::string& percent) {
        tree.write("sys/class/drm/card0/device/gpu_busy_percent", percent + "\n");
    }
    /// What the main thread gets `seconds` later.
    std::optional<std::vector<int>> ask(double seconds = 2) {
        now += seconds;
        std::vector<int> percents{99};
        if (!source.utilizations(percents)) return std::nullopt;
        return percents;
    }
    /// Lets the worker do what it was given, and the main thread take the answer.
    std::size_t work() {
        const std::size_t pieces = queue.runAll();
        loop.runPosted();
        return pieces;
    }

    SystemTree tree;
    FakeClock clock;
    FakeRunLoop loop{clock};
    FakeWorkQueue queue;
    double now = 1000;
    LinuxAcceleratorSource source{tree.root(), queue, loop, [] { return nullptr; }, [this] { return now; }};
    using Percents = std::vector<int>;
};

TEST_F(LinuxAcceleratorSourceTest, NothingIsReadOnTheMainThread) {
    EXPECT_EQ(ask(), std::nullopt);
    EXPECT_EQ(queue.pendingCount(), 1U);
}

TEST_F(LinuxAcceleratorSourceTest, LastResultIsServed) {
    ask();
    work();
    setPercent("20");
    EXPECT_EQ(ask(), Percents{10});
    work();
    EXPECT_EQ(ask(), Percents{20});
}

TEST_F(LinuxAcceleratorSourceTest, QuickQuestionsShareAReading) {
    ask();
    work();
    EXPECT_EQ(ask(0.5), Percents{10});
    EXPECT_EQ(ask(0.5), Percents{10});
    EXPECT_EQ(queue.pendingCount(), 0U);
    EXPECT_EQ(ask(1), Percents{10});
    EXPECT_EQ(queue.pendingCount(), 1U);
}

TEST_F(LinuxAcceleratorSourceTest, QuestionALittleEarlyStartsAReading) {
    ask();
    work();
    ask(1.96);
    EXPECT_EQ(queue.pendingCount(), 1U);
}

TEST_F(LinuxAcceleratorSourceTest, ReadingUnderWayIsNotStartedAgain) {
    ask();
    ask();
    ask();
    EXPECT_EQ(queue.pendingCount(), 1U);
}

TEST_F(LinuxAcceleratorSourceTest, ResultIsAbsentOnceOlderThanThreeReadings) {
    ask();
    work();
    EXPECT_EQ(ask(), Percents{10});
    EXPECT_EQ(ask(), Percents{10});
    EXPECT_EQ(ask(), Percents{10});
    EXPECT_EQ(ask(), std::nullopt);
    // The worker comes back: its answer is to the first question that it did not answer in time.
    work();
    ask();
    work();
    EXPECT_EQ(ask(), Percents{10});
}

TEST_F(LinuxAcceleratorSourceTest, SlowRhythmOfQuestionsIsServedToo) {
    ask();
    work();
    ask(10);
    work();
    EXPECT_EQ(ask(10), Percents{10});
    work();
    EXPECT_EQ(ask(10), Percents{10});
}

TEST_F(LinuxAcceleratorSourceTest, ResultFromBeforeAPauseIsNotServed) {
    ask();
    work();
    ask();
    work();
    EXPECT_EQ(ask(3600), std::nullopt);
    work();
    EXPECT_EQ(ask(), Percents{10});
}

TEST_F(LinuxAcceleratorSourceTest, MachineWithoutCardsIsSearchedOnceAMinute) {
    tree.remove("sys");
    ask();
    work();
    EXPECT_EQ(ask(), Percents{});
    EXPECT_EQ(ask(50), Percents{});
    EXPECT_EQ(queue.pendingCount(), 0U);
    ask(10);
    EXPECT_EQ(queue.pendingCount(), 1U);
}

TEST_F(LinuxAcceleratorSourceTest, AnswerAfterTheSourceIsGoneDoesNoHarm) {
    {
        LinuxAcceleratorSource other(
            tree.root(), queue, loop, [] { return nullptr; }, [] { return 0.0; });
        std::vector<int> percents;
        other.utilizations(percents);
    }
    EXPECT_EQ(work(), 1U);
}

}  // namespace
}  // namespace velmora
