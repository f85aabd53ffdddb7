#include "samplers/MemorySampler.h"

#include "fakes/FakeMemorySource.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

constexpr std::uint64_t kPage = 4096;
constexpr std::uint64_t kTotal = 1'000'000 * kPage;

class MemorySamplerTest : public testing::Test {
protected:
    MemorySamplerTest() { source.physical = kTotal; }

    MemoryStats sample(const MemoryCounters& counters, double interval = 2) {
        source.pages = counters;
        source.pages->pageSize = kPage;
        return sampleSource(interval);
    }
    MemoryStats sampleSource(double interval = 2) {
        if (!sampler) sampler.emplace(source);
        sampler->sample(interval, stats);
        return stats;
    }

    FakeMemorySource source;
    std::optional<MemorySampler> sampler;
    MemoryStats stats;
};

TEST_F(MemorySamplerTest, CountersBecomeBytes) {
    const auto result = sample({.wireCount = 100,
                                .purgeableCount = 30,
                                .compressorPageCount = 50,
                                .externalPageCount = 400,
                                .internalPageCount = 230});
    EXPECT_EQ(result.total, kTotal);
    EXPECT_EQ(result.app, 200 * kPage);
    EXPECT_EQ(result.wired, 100 * kPage);
    EXPECT_EQ(result.compressed, 50 * kPage);
    EXPECT_EQ(result.cached, 430 * kPage);
    EXPECT_EQ(result.used, 350 * kPage);
    EXPECT_EQ(result.free, kTotal - 350 * kPage);
}

TEST_F(MemorySamplerTest, PurgeableAboveInternalGivesNoApplicationMemory) {
    const auto result = sample({.wireCount = 1, .purgeableCount = 11, .internalPageCount = 10});
    EXPECT_EQ(result.app, 0U);
    EXPECT_EQ(result.used, kPage);
    EXPECT_EQ(result.cached, 11 * kPage);
}

TEST_F(MemorySamplerTest, UsedAboveTotalGivesNoFreeMemory) {
    EXPECT_EQ(sample({.wireCount = kTotal / kPage + 1}).free, 0U);
}

TEST_F(MemorySamplerTest, LevelOfHundredGivesNoPressure) {
    source.level = 100;
    EXPECT_EQ(sample({.wireCount = 500'000}).pressure, 0);
}

TEST_F(MemorySamplerTest, LevelOfZeroGivesFullPressure) {
    source.level = 0;
    EXPECT_EQ(sample({.wireCount = 500'000}).pressure, 1);
}

TEST_F(MemorySamplerTest, LevelBetweenGivesWhatIsNotAvailable) {
    source.level = 37;
    EXPECT_DOUBLE_EQ(sample({}).pressure, 0.63);
}

TEST_F(MemorySamplerTest, LevelAboveHundredFallsBackOnTheUsedShare) {
    source.level = 101;
    EXPECT_DOUBLE_EQ(sample({.wireCount = 250'000}).pressure, 0.25);
}

TEST_F(MemorySamplerTest, NegativeLevelFallsBackOnTheUsedShare) {
    source.level = -1;
    EXPECT_DOUBLE_EQ(sample({.wireCount = 250'000}).pressure, 0.25);
}

TEST_F(MemorySamplerTest, FailedLevelReadFallsBackOnTheUsedShare) {
    EXPECT_DOUBLE_EQ(sample({.wireCount = 250'000}).pressure, 0.25);
}

TEST_F(MemorySamplerTest, TotalOfZeroWithoutALevelGivesNoPressure) {
    source.physical = 0;
    EXPECT_EQ(sample({.wireCount = 250'000}).pressure, 0);
}

TEST_F(MemorySamplerTest, FirstCallGivesNoRates) {
    const auto first = sample({.pageIns = 1'000'000'000, .pageOuts = 2'000'000'000});
    EXPECT_EQ(first.pageInPerSec, 0);
    EXPECT_EQ(first.pageOutPerSec, 0);
}

TEST_F(MemorySamplerTest, RatesAreBytesPerSecond) {
    sample({.pageIns = 100, .pageOuts = 1000});
    const auto second = sample({.pageIns = 110, .pageOuts = 1005}, 2);
    EXPECT_DOUBLE_EQ(second.pageInPerSec, 5.0 * kPage);
    EXPECT_DOUBLE_EQ(second.pageOutPerSec, 2.5 * kPage);
}

TEST_F(MemorySamplerTest, CounterThatFellGivesZeroRateOnceAndIsTheNewBase) {
    sample({.pageIns = 1000, .pageOuts = 100});
    const auto fallen = sample({.pageIns = 10, .pageOuts = 102}, 1);
    EXPECT_EQ(fallen.pageInPerSec, 0);
    // The other counter goes its own way.
    EXPECT_DOUBLE_EQ(fallen.pageOutPerSec, 2.0 * kPage);
    EXPECT_DOUBLE_EQ(sample({.pageIns = 13, .pageOuts = 102}, 1).pageInPerSec, 3.0 * kPage);
    const auto fallenBack = sample({.pageIns = 17, .pageOuts = 20}, 1);
    EXPECT_EQ(fallenBack.pageOutPerSec, 0);
    EXPECT_DOUBLE_EQ(fallenBack.pageInPerSec, 4.0 * kPage);
    EXPECT_DOUBLE_EQ(sample({.pageIns = 17, .pageOuts = 25}, 1).pageOutPerSec, 5.0 * kPage);
}

TEST_F(MemorySamplerTest, IntervalOfZeroGivesNoRatesYetTheCountersAdvance) {
    sample({.pageIns = 100, .pageOuts = 100});
    const auto restarted = sample({.pageIns = 200, .pageOuts = 200}, 0);
    EXPECT_EQ(restarted.pageInPerSec, 0);
    EXPECT_EQ(restarted.pageOutPerSec, 0);
    const auto next = sample({.pageIns = 201, .pageOuts = 203}, 1);
    EXPECT_DOUBLE_EQ(next.pageInPerSec, 1.0 * kPage);
    EXPECT_DOUBLE_EQ(next.pageOutPerSec, 3.0 * kPage);
}

TEST_F(MemorySamplerTest, MachineWithoutSwapShowsNone) {
    source.swapUsage = SwapUsage{.total = 4096, .used = 1024};
    sample({});
    source.swapUsage = SwapUsage{.total = 0, .used = 0};
    const auto result = sample({});
    EXPECT_EQ(result.swapUsed, 0U);
    EXPECT_EQ(result.swapTotal, 0U);
}

TEST_F(MemorySamplerTest, SwapIsPassedOn) {
    source.swapUsage = SwapUsage{.total = 4096, .used = 1024};
    const auto result = sample({});
    EXPECT_EQ(result.swapUsed, 1024U);
    EXPECT_EQ(result.swapTotal, 4096U);
}

TEST_F(MemorySamplerTest, FailedSwapReadShowsNoSwap) {
    source.swapUsage = SwapUsage{.total = 4096, .used = 1024};
    sample({});
    source.swapUsage = std::nullopt;
    const auto result = sample({});
    EXPECT_EQ(result.swapUsed, 0U);
    EXPECT_EQ(result.swapTotal, 0U);
}

TEST_F(MemorySamplerTest, FailedReadKeepsTheTotalAndNothingElse) {
    source.swapUsage = SwapUsage{.total = 4096, .used = 1024};
    source.level = 50;
    MemoryCounters counters{
        .wireCount = 7, .compressorPageCount = 3, .externalPageCount = 9, .internalPageCount = 8};
    sample(counters);
    counters.pageIns = counters.pageOuts = 100;
    const auto good = sample(counters);
    ASSERT_GT(good.pageInPerSec, 0);
    ASSERT_GT(good.free, 0U);
    source.pages = std::nullopt;
    MemoryStats expected;
    expected.total = kTotal;
    EXPECT_EQ(sampleSource(), expected);
}

TEST_F(MemorySamplerTest, ReadAfterAFailureTakesItsRateFromTheLastGoodOne) {
    sample({.pageIns = 100, .pageOuts = 200});
    source.pages = std::nullopt;
    sampleSource();
    const auto after = sample({.pageIns = 110, .pageOuts = 206}, 2);
    EXPECT_DOUBLE_EQ(after.pageInPerSec, 5.0 * kPage);
    EXPECT_DOUBLE_EQ(after.pageOutPerSec, 3.0 * kPage);
}

TEST_F(MemorySamplerTest, FailedFirstReadStillLeavesTheNextOneWithoutRates) {
    source.pages = std::nullopt;
    sampleSource();
    EXPECT_EQ(sample({.pageIns = 100}).pageInPerSec, 0);
}

TEST_F(MemorySamplerTest, PhysicalMemoryIsReadOnce) {
    sample({});
    source.physical = 1;
    EXPECT_EQ(sample({}).total, kTotal);
    EXPECT_EQ(source.physicalMemoryReads, 1);
}

TEST_F(MemorySamplerTest, SeriesAndProcessListStayAsTheyAre) {
    stats.history.append(0.5);
    stats.usedLong.append(0.25);
    stats.topProcs = {{"one", 1.0}};
    stats.topProcsTotal = 3;
    stats.topProcsSumGB = 2;
    const auto result = sample({.wireCount = 1});
    EXPECT_EQ(result.history.size(), 1U);
    EXPECT_EQ(result.usedLong.size(), 1U);
    EXPECT_EQ(result.topProcs.size(), 1U);
    EXPECT_EQ(result.topProcsTotal, 3);
    EXPECT_EQ(result.topProcsSumGB, 2);
}

}  // namespace
}  // namespace velmora
