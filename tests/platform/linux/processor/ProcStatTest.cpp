#include "platform/linux/processor/ProcStat.h"

#include <gtest/gtest.h>

#include <string>

namespace velmora::ProcStat {
namespace {

std::vector<CoreTimes> parse(std::string_view text) {
    std::vector<CoreTimes> cores{{9, 9, 9, 9, 9}};
    parseCoreTimes(text, cores);
    return cores;
}

TEST(ProcStatTest, ColumnsAreFoldedToFourKinds) {
    //                       user nice system idle iowait irq softirq steal guest guest_nice
    EXPECT_EQ(parse("cpu  9 9 9 9 9 9 9 9 9 9\ncpu3 100 20 30 4000 500 6 7 8 90 10\nintr 1\n"),
              (std::vector<CoreTimes>{
                  {.cpu = 3, .user = 100, .nice = 20, .system = 30 + 6 + 7 + 8, .idle = 4000 + 500}}));
}

TEST(ProcStatTest, SumLineIsNoCore) {
    EXPECT_TRUE(parse("cpu  1 2 3 4 5 6 7 8 9 10\n").empty());
}

TEST(ProcStatTest, ReadingEndsAtTheFirstOtherLine) {
    EXPECT_EQ(parse("cpu0 1 2 3 4\nintr 5\ncpu1 1 2 3 4\n").size(), 1U);
}

TEST(ProcStatTest, OldKernelsWithFourColumnsAreRead) {
    EXPECT_EQ(parse("cpu0 1 2 3 4\n"),
              (std::vector<CoreTimes>{{.cpu = 0, .user = 1, .nice = 2, .system = 3, .idle = 4}}));
}

TEST(ProcStatTest, OfflineCoresLeaveGaps) {
    const auto cores = parse("cpu0 1 2 3 4\ncpu7 1 2 3 4\n");
    ASSERT_EQ(cores.size(), 2U);
    EXPECT_EQ(cores[1].cpu, 7);
}

TEST(ProcStatTest, MalformedLineIsLeftOut) {
    const std::string nul("cpu0 1 2\0 3 4\n", 14);
    for (const std::string& line :
         {std::string("cpu0 1 2 3\n"), std::string("cpu0 1 x 3 4\n"), std::string("cpu0\n"),
          std::string("cpu0 99999999999999999999999 2 3 4\n"), std::string("cpu99999999999 1 2 3 4\n"),
          std::string("cpu-1 1 2 3 4\n"), std::string("cpux 1 2 3 4\n"), std::string("cpu0x 1 2 3 4\n"),
          nul}) {
        const auto cores = parse(line + "cpu5 1 2 3 4\n");
        ASSERT_EQ(cores.size(), 1U) << line;
        EXPECT_EQ(cores[0].cpu, 5) << line;
    }
}

TEST(ProcStatTest, LineThatIsCutIsLeftOut) {
    EXPECT_EQ(parse("cpu0 1 2 3 4\ncpu1 100 200 300 40").size(), 1U);
}

TEST(ProcStatTest, EmptyTextHasNoCores) {
    EXPECT_TRUE(parse("").empty());
}

TEST(ProcStatTest, BootTimeStandsBehindTheInterrupts) {
    EXPECT_EQ(parseBootTime("cpu  1 2\nintr 5 0 0 0\nctxt 77\nbtime 1700000000\nprocesses 8\nsoftirq 1 2\n"),
              1'700'000'000);
}

TEST(ProcStatTest, BootTimeMayBeTheFirstOrTheLastLine) {
    EXPECT_EQ(parseBootTime("btime 12\n"), 12);
    EXPECT_EQ(parseBootTime("cpu 1\nbtime 12\n"), 12);
}

TEST(ProcStatTest, MissingBootTimeIsAbsent) {
    EXPECT_EQ(parseBootTime(""), std::nullopt);
    EXPECT_EQ(parseBootTime("\n\n"), std::nullopt);
    EXPECT_EQ(parseBootTime("cpu 1 2\nxbtime 12\n"), std::nullopt);
}

TEST(ProcStatTest, MalformedOrCutBootTimeIsAbsent) {
    EXPECT_EQ(parseBootTime("btime 17x\n"), std::nullopt);
    EXPECT_EQ(parseBootTime("btime \n"), std::nullopt);
    EXPECT_EQ(parseBootTime("ctxt 1\nbtime 170"), std::nullopt);
    EXPECT_EQ(parseBootTime("btime 99999999999999999999\n"), std::nullopt);
}

}  // namespace
}  // namespace velmora::ProcStat
