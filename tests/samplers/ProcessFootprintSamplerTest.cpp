#include "samplers/ProcessFootprintSampler.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeNetworkSources.h"
#include "fakes/FakeProcessSources.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeWorkQueue.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

class ProcessFootprintSamplerTest : public testing::Test {
protected:
    ProcessFootprintSamplerTest() {
        source->add(1, "a", 500'000'000);
        source->onFootprint = [this] { time.now += walkSeconds; };
    }
    void setBytes(std::uint64_t bytes) { source->footprints[1] = bytes; }
    double firstGB(ProcessFootprintSampler& sampler) {
        const MemoryTop top = sampler.memoryFootprintTop(8);
        return top.top.empty() ? 0 : top.top.front().gb;
    }
    /// Ten seconds on the clock and the loop, with the work that is due meanwhile.
    void tenSeconds() {
        for (int second = 0; second < 10; ++second) {
            time.now += 1;
            loop.advance(1);
            if (workRuns) queue.runAll();
            loop.runPosted();
        }
    }

    std::shared_ptr<FakeProcessFootprintSource> source = std::make_shared<FakeProcessFootprintSource>();
    FakeMonotonicClock time;
    FakeClock clock;
    FakeRunLoop loop{clock};
    FakeWorkQueue queue;
    double walkSeconds = 0;
    bool workRuns = true;
};

TEST_F(ProcessFootprintSamplerTest, ShortWalkIsMadeAtTheQuestion) {
    ProcessFootprintSampler sampler(source, time, queue, loop);
    EXPECT_EQ(firstGB(sampler), 0.5);
    setBytes(700'000'000);
    EXPECT_EQ(firstGB(sampler), 0.7);
    EXPECT_EQ(queue.pendingCount(), 0U);
    EXPECT_EQ(loop.timerCount(), 0U);
}

TEST_F(ProcessFootprintSamplerTest, AfterALongWalkNoneIsMadeAtTheQuestion) {
    walkSeconds = 0.006;
    ProcessFootprintSampler sampler(source, time, queue, loop);
    EXPECT_EQ(firstGB(sampler), 0.5);
    setBytes(700'000'000);
    EXPECT_EQ(firstGB(sampler), 0.5);
    EXPECT_EQ(source->walkCount, 1);
}

TEST_F(ProcessFootprintSamplerTest, LaterQuestionsGetAWalkOfASecondBefore) {
    walkSeconds = 0.006;
    ProcessFootprintSampler sampler(source, time, queue, loop);
    firstGB(sampler);
    for (int round = 0; round < 3; ++round) {
        setBytes(600'000'000 + static_cast<std::uint64_t>(round) * 100'000'000);
        tenSeconds();
        EXPECT_DOUBLE_EQ(firstGB(sampler), 0.6 + 0.1 * round);
    }
    EXPECT_EQ(source->walkCount, 4);
}

TEST_F(ProcessFootprintSamplerTest, WalkThatHangsIsNotJoinedByAnotherAndItsListGoes) {
    walkSeconds = 0.006;
    ProcessFootprintSampler sampler(source, time, queue, loop);
    firstGB(sampler);
    workRuns = false;
    for (int round = 0; round < 3; ++round) {
        tenSeconds();
        const double gigabytes = firstGB(sampler);
        EXPECT_EQ(gigabytes, round < 2 ? 0.5 : 0) << round;
    }
    EXPECT_EQ(queue.pendingCount(), 1U);
    // Once it comes back, so does the list.
    queue.runAll();
    loop.runPosted();
    workRuns = true;
    tenSeconds();
    EXPECT_EQ(firstGB(sampler), 0.5);
}

TEST_F(ProcessFootprintSamplerTest, WalkThatOutlivesTheSamplerHarmsNothing) {
    walkSeconds = 0.006;
    auto sampler = std::make_unique<ProcessFootprintSampler>(source, time, queue, loop);
    firstGB(*sampler);
    workRuns = false;
    tenSeconds();
    ASSERT_EQ(queue.pendingCount(), 1U);
    sampler.reset();
    source.reset();
    queue.runAll();
    loop.runPosted();
    EXPECT_EQ(loop.timerCount(), 0U);
}

TEST_F(ProcessFootprintSamplerTest, OneProcessTooManyIsNotWalkedAtTheQuestion) {
    for (int pid = 2; pid <= ProcessFootprintSampler::kMostProcessesAtOnce; ++pid) source->add(pid, "b", 1);
    ProcessFootprintSampler few(source, time, queue, loop);
    EXPECT_EQ(firstGB(few), 0.5);
    EXPECT_EQ(queue.pendingCount(), 0U);
    source->add(ProcessFootprintSampler::kMostProcessesAtOnce + 1, "b", 1);
    ProcessFootprintSampler many(source, time, queue, loop);
    EXPECT_EQ(firstGB(many), 0);
    EXPECT_EQ(queue.pendingCount(), 1U);
    EXPECT_EQ(source->walkCount, 1) << "that of the few";
}

class ManyFootprintsTest : public ProcessFootprintSamplerTest {
protected:
    ManyFootprintsTest() {
        for (int pid = 2; pid <= 1000; ++pid) source->add(pid, "b", 1);
    }
    void runWork() {
        queue.runAll();
        loop.runPosted();
    }
    ProcessFootprintSampler sampler{source, time, queue, loop};
};

TEST_F(ManyFootprintsTest, NoQuestionWalksOverAThousandProcessesItself) {
    for (int question = 0; question < 3; ++question) {
        const int walksBefore = source->walkCount;
        firstGB(sampler);
        EXPECT_EQ(source->walkCount, walksBefore) << question;
        tenSeconds();
    }
    EXPECT_EQ(source->walkCount, 4) << "one begun by the first question, and one ahead of each next one";
}

TEST_F(ManyFootprintsTest, FirstListComesLateAndIsToldOnce) {
    EXPECT_EQ(firstGB(sampler), 0);
    EXPECT_FALSE(sampler.hasLateAnswer());
    runWork();
    EXPECT_TRUE(sampler.hasLateAnswer());
    EXPECT_EQ(firstGB(sampler), 0.5);
    EXPECT_FALSE(sampler.hasLateAnswer());
}

TEST_F(ManyFootprintsTest, QuestionForALateListDoesNotMoveTheWalkOfTheNextOne) {
    firstGB(sampler);
    runWork();
    time.now += 2;
    loop.advance(2);
    EXPECT_EQ(firstGB(sampler), 0.5);
    setBytes(700'000'000);
    for (int second = 2; second < 10; ++second) {
        time.now += 1;
        loop.advance(1);
        runWork();
    }
    EXPECT_EQ(source->walkCount, 2);
    EXPECT_EQ(firstGB(sampler), 0.7);
    EXPECT_FALSE(sampler.hasLateAnswer());
}

TEST_F(ManyFootprintsTest, ListOfBeforeALongPauseIsNotShownAfterIt) {
    firstGB(sampler);
    tenSeconds();
    EXPECT_EQ(firstGB(sampler), 0.5);
    // The machine slept: the clock went on, and no timer did.
    time.now += 8 * 3600;
    setBytes(700'000'000);
    EXPECT_EQ(firstGB(sampler), 0);
    runWork();
    EXPECT_TRUE(sampler.hasLateAnswer());
    EXPECT_EQ(firstGB(sampler), 0.7);
    // The pause tells nothing of when the next question comes.
    setBytes(800'000'000);
    tenSeconds();
    EXPECT_EQ(firstGB(sampler), 0.8);
}

TEST_F(ManyFootprintsTest, MachineThatHasJustBootedAwaitsItsFirstListToo) {
    time.now = 3;
    EXPECT_EQ(firstGB(sampler), 0);
    runWork();
    EXPECT_TRUE(sampler.hasLateAnswer());
}

}  // namespace
}  // namespace velmora
