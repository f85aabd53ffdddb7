#include "platform/linux/disk/ProcDiskStats.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmora {
namespace {

using ProcDiskStats::Line;

std::vector<Line> linesOf(std::string_view text) {
    std::vector<Line> lines;
    while (const auto line = ProcDiskStats::takeLine(text)) lines.push_back(*line);
    EXPECT_TRUE(text.empty());
    return lines;
}

TEST(ProcDiskStats, LineGivesReadsWritesAndTheirSectors) {
    EXPECT_EQ(
        linesOf(
            " 254       0 vda 67200 12718 5953778 68041 18951 8586 3915920 9943 0 8516 78578 5673 20 720080 "
            "527 2139 66\n"),
        (std::vector<Line>{{"vda", 67200, 5953778, 18951, 3915920}}));
}

TEST(ProcDiskStats, LineOfAnOldKernelWithoutDiscardsCounts) {
    EXPECT_EQ(linesOf("   8       0 sda 1 2 3 4 5 6 7 8 9 10 11\n"),
              (std::vector<Line>{{"sda", 1, 3, 5, 7}}));
}

TEST(ProcDiskStats, NameWithASlashIsKept) {
    EXPECT_EQ(linesOf(" 104       0 cciss/c0d0 1 2 3 4 5 6 7 8 9 10 11\n").at(0).name, "cciss/c0d0");
}

TEST(ProcDiskStats, LineThatEndsBeforeTheSectorsWrittenIsLeftOut) {
    EXPECT_EQ(linesOf("8 1 sda1 1 2 3 4\n8 2 sda2 1 2 3 4 5 6 7\n"),
              (std::vector<Line>{{"sda2", 1, 3, 5, 7}}));
}

TEST(ProcDiskStats, LineWithAWordAmongTheNumbersIsLeftOut) {
    EXPECT_EQ(linesOf("8 1 sda1 1 2 x 4 5 6 7 8\n8 2 sda2 -1 2 3 4 5 6 7 8\n8 3 sda3 1 2 3 4 5 6 7 8\n"),
              (std::vector<Line>{{"sda3", 1, 3, 5, 7}}));
}

TEST(ProcDiskStats, NumberTooLargeLeavesTheLineOut) {
    EXPECT_TRUE(linesOf("8 1 sda1 1 2 99999999999999999999 4 5 6 7 8\n").empty());
}

TEST(ProcDiskStats, LastLineWithoutItsEndIsLeftOut) {
    EXPECT_EQ(linesOf("8 1 a 1 2 3 4 5 6 7 8\n8 2 b 1 2 3 4 5 6 77").size(), 1u);
}

TEST(ProcDiskStats, EmptyNulFilledAndForeignTextsGiveNothing) {
    EXPECT_TRUE(linesOf("").empty());
    EXPECT_TRUE(linesOf("\n\n\n").empty());
    std::string nuls(5000, '\0');
    nuls.back() = '\n';
    EXPECT_TRUE(linesOf(nuls).empty());
    EXPECT_TRUE(linesOf("\xFF\xFE\x80 \xC0\n").empty());
}

}  // namespace
}  // namespace velmora
