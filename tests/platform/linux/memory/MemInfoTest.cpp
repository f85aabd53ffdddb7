#include "platform/linux/memory/MemInfo.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(MemInfoTest, LinesOfUseAreRead) {
    const MemInfo info = parseMemInfo(
        "MemTotal:       100 kB\nMemFree:         1 kB\nMemAvailable:    2 kB\nBuffers:         3 kB\n"
        "Cached:          4 kB\nSwapCached:     99 kB\nSwapTotal:       5 kB\nSwapFree:        6 kB\n"
        "Zswap:           7 kB\nZswapped:       98 kB\nAnonPages:       8 kB\nShmem:           9 kB\n"
        "ShmemHugePages: 97 kB\nSReclaimable:   10 kB\nHugePages_Total:  0\n");
    EXPECT_EQ(info, (MemInfo{100, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST(MemInfoTest, OrderOfTheLinesDoesNotMatter) {
    const MemInfo info = parseMemInfo("Cached: 4 kB\nMemTotal: 100 kB\n");
    EXPECT_EQ(info.memTotal, 100U);
    EXPECT_EQ(info.cached, 4U);
}

TEST(MemInfoTest, MissingLineIsAbsent) {
    EXPECT_EQ(parseMemInfo("MemTotal: 100 kB\n").memAvailable, std::nullopt);
}

TEST(MemInfoTest, MalformedLineIsAbsentAndTheOthersStay) {
    for (const char* line : {"MemFree: x kB", "MemFree:", "MemFree: 5", "MemFree: 5 MB", "MemFree: -5 kB",
                             "MemFree: 99999999999999999999999 kB"}) {
        const MemInfo info = parseMemInfo("MemTotal: 100 kB\n" + std::string(line) + "\nBuffers: 3 kB\n");
        EXPECT_EQ(info.memFree, std::nullopt) << line;
        EXPECT_EQ(info.memTotal, 100U) << line;
        EXPECT_EQ(info.buffers, 3U) << line;
    }
}

TEST(MemInfoTest, LineThatIsCutIsAbsent) {
    EXPECT_EQ(parseMemInfo("MemTotal: 100 kB\nMemFree: 5 kB").memFree, std::nullopt);
}

TEST(MemInfoTest, EmptyTextHasNothing) {
    EXPECT_EQ(parseMemInfo(""), MemInfo{});
}

}  // namespace
}  // namespace velmora
