#include "platform/linux/memory/LinuxMemorySource.h"

#include "platform/linux/files/SystemTree.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace velmora {
namespace {

class LinuxMemorySourceTest : public testing::Test {
protected:
    LinuxMemorySource& source() {
        if (!m_source) m_source.emplace(tree.root());
        return *m_source;
    }
    MemoryCounters counters() {
        const auto result = source().counters();
        EXPECT_TRUE(result);
        return result.value_or(MemoryCounters{});
    }

    SystemTree tree;

private:
    std::optional<LinuxMemorySource> m_source;
};

TEST_F(LinuxMemorySourceTest, CountersAreKibibytes) {
    tree.show("hybrid-laptop/frame-0");
    const MemoryCounters result = counters();
    EXPECT_EQ(result.pageSize, 1024U);
    EXPECT_EQ(result.internalPageCount, 4'200'000U + 600'000U);
    EXPECT_EQ(result.purgeableCount, 0U);
    EXPECT_EQ(result.externalPageCount, 200'000U + 5'000'000U - 600'000U + 400'000U);
    EXPECT_EQ(result.compressorPageCount, 0U);
    EXPECT_EQ(result.wireCount, 16'000'000U - 4'000'000U - 200'000U - 5'000'000U - 4'200'000U - 400'000U);
    EXPECT_EQ(result.pageIns, 5'000'000U);
    EXPECT_EQ(result.pageOuts, 3'000'000U);
}

TEST_F(LinuxMemorySourceTest, UsedIsWhatFreeMemoryAndCachesLeave) {
    tree.show("hybrid-laptop/frame-0");
    const MemoryCounters result = counters();
    EXPECT_EQ(result.internalPageCount + result.wireCount + result.compressorPageCount,
              16'000'000U - 4'000'000U - 200'000U - (5'000'000U - 600'000U) - 400'000U);
}

TEST_F(LinuxMemorySourceTest, PhysicalMemoryIsTheTotal) {
    tree.show("hybrid-laptop/frame-0");
    EXPECT_EQ(source().physicalMemory(), 16'000'000ULL * 1024);
}

TEST_F(LinuxMemorySourceTest, MissingFilesGiveNothing) {
    EXPECT_EQ(source().physicalMemory(), 0U);
    EXPECT_EQ(source().counters(), std::nullopt);
    EXPECT_EQ(source().availableLevel(), std::nullopt);
    EXPECT_EQ(source().swap(), std::nullopt);
}

TEST_F(LinuxMemorySourceTest, DamagedFilesGiveNothing) {
    tree.show("damaged");
    EXPECT_EQ(source().counters(), std::nullopt);
    EXPECT_EQ(source().availableLevel(), std::nullopt);
    EXPECT_EQ(source().swap(), std::nullopt);
}

TEST_F(LinuxMemorySourceTest, FailedReadLeavesNoLevelOrSwapBehind) {
    tree.show("hybrid-laptop/frame-0");
    counters();
    EXPECT_TRUE(source().availableLevel());
    tree.write("proc/meminfo", "");
    EXPECT_EQ(source().counters(), std::nullopt);
    EXPECT_EQ(source().availableLevel(), std::nullopt);
    EXPECT_EQ(source().swap(), std::nullopt);
}

TEST_F(LinuxMemorySourceTest, LevelIsTheAvailableShareRoundedDown) {
    tree.write("proc/meminfo", "MemTotal: 1000 kB\nMemFree: 1 kB\nMemAvailable: 379 kB\n");
    counters();
    EXPECT_EQ(source().availableLevel(), 37);
}

TEST_F(LinuxMemorySourceTest, EstimateOutsideTheMemoryIsNoLevel) {
    tree.write("proc/meminfo", "MemTotal: 1000 kB\nMemFree: 1 kB\nMemAvailable: 1011 kB\n");
    counters();
    EXPECT_EQ(source().availableLevel(), std::nullopt);
    tree.write("proc/meminfo", "MemTotal: 0 kB\nMemFree: 0 kB\nMemAvailable: 0 kB\n");
    counters();
    EXPECT_EQ(source().availableLevel(), std::nullopt);
}

TEST_F(LinuxMemorySourceTest, SwapIsWhatIsNotFreeOfItAndNothingWithoutBothLines) {
    const std::string memory = "MemTotal: 1000 kB\nMemFree: 1 kB\n";
    tree.write("proc/meminfo", memory + "SwapTotal: 10 kB\nSwapFree: 12 kB\n");
    counters();
    EXPECT_EQ(source().swap(), (SwapUsage{.total = 10 * 1024, .used = 0}));
    for (const char* line : {"SwapTotal: 10 kB\n", "SwapFree: 10 kB\n"}) {
        tree.write("proc/meminfo", memory + line);
        counters();
        EXPECT_EQ(source().swap(), std::nullopt) << line;
    }
}

TEST_F(LinuxMemorySourceTest, KernelWithoutAnEstimateHasNoLevel) {
    tree.show("bare");
    counters();
    EXPECT_EQ(source().availableLevel(), std::nullopt);
}

TEST_F(LinuxMemorySourceTest, SwapIsInBytes) {
    tree.show("hybrid-laptop/frame-0");
    counters();
    EXPECT_EQ(source().swap(), (SwapUsage{.total = 2'000'000ULL * 1024, .used = 500'000ULL * 1024}));
}

TEST_F(LinuxMemorySourceTest, ZramAndZswapAreTheCompressor) {
    tree.show("zram-swap");
    const MemoryCounters result = counters();
    // zswap, the swap device's 400 MiB and the empty device's 100 KiB, where nr_zspages says 400000 KiB.
    const std::uint64_t expected = 50'000 + 409'600 + 100;
    ASSERT_GE(expected, 100'000 * static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE)) / 1024);
    EXPECT_EQ(result.compressorPageCount, expected);
    EXPECT_EQ(result.wireCount, 8'000'000 - 1'000'000 - 100'000 - 1'500'000 - 3'600'000 - 200'000 - expected);
}

TEST_F(LinuxMemorySourceTest, CompressedPagesOfTheKernelCountIfTheyAreMore) {
    tree.show("zram-swap");
    tree.remove("sys");
    const auto pages = 100'000 * static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE)) / 1024;
    EXPECT_EQ(counters().compressorPageCount, pages);
}

TEST_F(LinuxMemorySourceTest, ZramDeviceThatBecomesSwapIsFound) {
    tree.write("proc/meminfo", "MemTotal: 9000 kB\nMemFree: 1 kB\nSwapTotal: 0 kB\nSwapFree: 0 kB\n");
    EXPECT_EQ(counters().compressorPageCount, 0U);
    tree.write("sys/block/zram0/mm_stat", "1 1 2097152 0 0 0 0 0 0\n");
    tree.write("proc/meminfo", "MemTotal: 9000 kB\nMemFree: 1 kB\nSwapTotal: 5000 kB\nSwapFree: 5000 kB\n");
    EXPECT_EQ(counters().compressorPageCount, 2048U);
}

TEST_F(LinuxMemorySourceTest, ZfsCacheIsCachedAndNotWired) {
    tree.show("zfs-arc");
    const MemoryCounters result = counters();
    constexpr std::uint64_t kArc = 2'000'000;
    EXPECT_EQ(result.externalPageCount, 200'000U + 5'000'000U - 600'000U + 400'000U + kArc);
    EXPECT_EQ(result.wireCount,
              16'000'000U - 1'000'000U - 200'000U - 5'000'000U - 4'200'000U - 400'000U - kArc);
}

TEST_F(LinuxMemorySourceTest, ZfsThatIsLoadedLaterIsFound) {
    tree.show("hybrid-laptop/frame-0");
    const auto before = counters().externalPageCount;
    tree.write("proc/spl/kstat/zfs/arcstats", "size 4 10240\nc_min 4 0\n");
    std::uint64_t after = before;
    for (int tick = 0; tick < 100 && after == before; ++tick) after = counters().externalPageCount;
    EXPECT_EQ(after, before + 10);
}

TEST_F(LinuxMemorySourceTest, NamedMemoryAboveTheTotalLeavesNothingWired) {
    tree.write("proc/meminfo", "MemTotal: 100 kB\nMemFree: 90 kB\nAnonPages: 90 kB\n");
    EXPECT_EQ(counters().wireCount, 0U);
}

TEST_F(LinuxMemorySourceTest, SharedMemoryAboveTheCacheLeavesNoFilePages) {
    tree.write("proc/meminfo", "MemTotal: 100 kB\nMemFree: 1 kB\nCached: 10 kB\nShmem: 20 kB\n");
    EXPECT_EQ(counters().externalPageCount, 0U);
}

TEST_F(LinuxMemorySourceTest, PageCountsStayWhenTheirFileCannotBeReadForOnce) {
    tree.show("hybrid-laptop/frame-0");
    counters();
    tree.write("proc/vmstat", "");
    const MemoryCounters result = counters();
    EXPECT_EQ(result.pageIns, 5'000'000U);
    EXPECT_EQ(result.pageOuts, 3'000'000U);
}

TEST_F(LinuxMemorySourceTest, PageCountsAreFoundWhenTheirLinesMoveBack) {
    tree.show("hybrid-laptop/frame-0");
    counters();
    tree.write("proc/vmstat", std::string(3000, 'x') + " 1\npgpgin 77\npgpgout 88\n");
    const MemoryCounters result = counters();
    EXPECT_EQ(result.pageIns, 77U);
    EXPECT_EQ(result.pageOuts, 88U);
}

TEST_F(LinuxMemorySourceTest, MachineWithoutVmstatStillHasItsMemory) {
    tree.show("bare");
    const MemoryCounters result = counters();
    EXPECT_EQ(result.pageIns, 0U);
    EXPECT_EQ(result.wireCount, 150'000U);
}

}  // namespace
}  // namespace velmora
