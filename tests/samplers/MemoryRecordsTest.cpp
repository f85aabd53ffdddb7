#include "samplers/MemoryRecords.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>

namespace velmora::MemoryRecords {
namespace {

/// A record in which every 32-bit word holds its own number, from 1.
template <std::size_t Size>
std::array<std::byte, Size> numberedWords() {
    std::array<std::byte, Size> bytes{};
    for (std::size_t offset = 0; offset < Size; offset += 4) {
        const auto word = static_cast<std::uint32_t>(offset / 4 + 1);
        std::memcpy(bytes.data() + offset, &word, sizeof word);
    }
    return bytes;
}

constexpr std::uint64_t pair(std::uint64_t low, std::uint64_t high) {
    return low | high << 32;
}

TEST(MemoryRecordsTest, StatisticsAreTakenFromTheirPlaces) {
    const auto counters = decodeStatistics(numberedWords<kStatisticsSize>(), 16384);
    ASSERT_TRUE(counters);
    EXPECT_EQ(counters->pageSize, 16384U);
    // free, active, inactive, wired.
    EXPECT_EQ(counters->wireCount, 4U);
    // Two 64-bit counters, zero-filled and reactivated pages, stand between.
    EXPECT_EQ(counters->pageIns, pair(9, 10));
    EXPECT_EQ(counters->pageOuts, pair(11, 12));
    // Then five more 64-bit ones up to the purges.
    EXPECT_EQ(counters->purgeableCount, 23U);
    // The speculative pages and four 64-bit counters.
    EXPECT_EQ(counters->compressorPageCount, 33U);
    EXPECT_EQ(counters->externalPageCount, 35U);
    EXPECT_EQ(counters->internalPageCount, 36U);
}

TEST(MemoryRecordsTest, ShorterLayoutOfAnOlderSystemIsEnough) {
    EXPECT_EQ(decodeStatistics(numberedWords<152>(), 4096),
              decodeStatistics(numberedWords<kStatisticsSize>(), 4096));
}

TEST(MemoryRecordsTest, StatisticsThatEndBeforeTheLastCounterAreAbsent) {
    EXPECT_EQ(decodeStatistics(std::array<std::byte, 143>{}, 4096), std::nullopt);
    EXPECT_EQ(decodeStatistics({}, 4096), std::nullopt);
}

TEST(MemoryRecordsTest, SwapIsTotalAvailableUsed) {
    const auto swap = decodeSwapUsage(numberedWords<kSwapUsageSize>());
    EXPECT_EQ(swap, (SwapUsage{.total = pair(1, 2), .used = pair(5, 6)}));
}

TEST(MemoryRecordsTest, ShortSwapRecordIsAbsent) {
    EXPECT_EQ(decodeSwapUsage(std::array<std::byte, 31>{}), std::nullopt);
}

}  // namespace
}  // namespace velmora::MemoryRecords
