#include "samplers/EnergyProcessSampler.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeProcessSources.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeWorkQueue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class EnergyProcessSamplerTest : public testing::Test {
protected:
    void set(std::int32_t pid, std::uint64_t nanojoules) {
        source->processes[pid] = ProcessCounters{0, 0, nanojoules};
        source->names[pid] = "p";
    }
    void runWork() {
        do {
            loop.runPosted();
        } while (queue.runAll() > 0 || loop.postedCount() > 0);
    }
    std::vector<TopProcess> sample(int limit = 5) {
        result.reset();
        sampler.sample(limit, [this](std::vector<TopProcess> list) { result = std::move(list); });
        runWork();
        if (!result) {
            loop.advance(0.7);
            runWork();
        }
        return result.value_or(std::vector<TopProcess>{{-1, "no answer", 0}});
    }

    std::shared_ptr<FakeProcessCounterSource> source = std::make_shared<FakeProcessCounterSource>();
    FakeClock clock;
    FakeRunLoop loop{clock};
    FakeWorkQueue queue;
    EnergyProcessSampler sampler{source, clock, queue, loop};
    std::optional<std::vector<TopProcess>> result;
};

TEST_F(EnergyProcessSamplerTest, NanojoulesBecomeWatts) {
    set(1, 1);
    sample();
    set(1, 3'000'000'001);
    loop.advance(2);
    EXPECT_THAT(sample(), ElementsAre(TopProcess{1, "p", 1.5}));
}

TEST_F(EnergyProcessSamplerTest, PowerOfNineMilliwattsIsNotListedAndOfTenIs) {
    set(1, 1);
    set(2, 1);
    sample();
    set(1, 9'000'001);
    set(2, 10'000'001);
    loop.advance(1);
    EXPECT_THAT(sample(), ElementsAre(TopProcess{2, "p", 0.01}));
}

TEST_F(EnergyProcessSamplerTest, ProcessWhoseCounterFellIsLeftOut) {
    set(1, 5'000'000'000);
    sample();
    set(1, 1'000'000'000);
    loop.advance(1);
    EXPECT_THAT(sample(), IsEmpty());
}

TEST_F(EnergyProcessSamplerTest, HighestPowerComesFirstAndTheLimitCuts) {
    for (int pid = 1; pid <= 3; ++pid) set(pid, 1);
    sample();
    set(1, 1'000'000'001);
    set(2, 3'000'000'001);
    set(3, 2'000'000'001);
    loop.advance(1);
    EXPECT_THAT(sample(2), ElementsAre(TopProcess{2, "p", 3}, TopProcess{3, "p", 2}));
}

TEST_F(EnergyProcessSamplerTest, CallWithinATenthOfASecondIsEmpty) {
    set(1, 1);
    sample();
    set(1, 9'000'000'000);
    loop.advance(0.1);
    EXPECT_THAT(sample(), IsEmpty());
}

TEST_F(EnergyProcessSamplerTest, WithoutSupportTheListStaysEmptyAndNothingIsLookedAt) {
    for (const std::optional<std::uint64_t> energy :
         {std::optional<std::uint64_t>(0), std::optional<std::uint64_t>()}) {
        source->energy = energy;
        EnergyProcessSampler unsupported(source, clock, queue, loop);
        EXPECT_FALSE(unsupported.isSupported());
        std::optional<std::vector<TopProcess>> list;
        unsupported.sample(5, [&](auto given) { list = std::move(given); });
        EXPECT_FALSE(list);
        runWork();
        ASSERT_TRUE(list);
        EXPECT_THAT(*list, IsEmpty());
    }
    EXPECT_EQ(source->walkCount, 0);
    EXPECT_EQ(loop.timerCount(), 0U);
}

TEST_F(EnergyProcessSamplerTest, SupportIsFoundOutOnce) {
    EXPECT_TRUE(sampler.isSupported());
    source->energy = 0;
    EXPECT_TRUE(sampler.isSupported());
    EXPECT_EQ(source->energyQuestions, 1);
}

}  // namespace
}  // namespace velmora
