#include "platform/linux/processor/LinuxProcessorTicksSource.h"

#include "platform/linux/files/StatFile.h"
#include "platform/linux/files/SystemTree.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Cores = std::vector<CoreTicks>;

class LinuxProcessorTicksSourceTest : public testing::Test {
protected:
    /// `lines` without the sum line, which stands before them.
    Cores read(const std::string& lines) {
        tree.write("proc/stat", "cpu  1 1 1 1\n" + lines + "intr 0\nbtime 1700000000\n");
        Cores cores{{9, 9, 9, 9}};
        EXPECT_TRUE(source.read(cores));
        return cores;
    }
    static CoreTicks growth(const Cores& before, const Cores& after, std::size_t core = 0) {
        return {.user = after[core].user - before[core].user,
                .system = after[core].system - before[core].system,
                .idle = after[core].idle - before[core].idle,
                .nice = after[core].nice - before[core].nice};
    }

    SystemTree tree;
    LinuxProcessorTicksSource source{std::make_shared<StatFile>(tree.root()), {}};
};

TEST_F(LinuxProcessorTicksSourceTest, CountersThatGrowAreHandedOn) {
    const auto first = read("cpu0 100 10 50 1000 5 1 2 3 0 0\n");
    const auto second = read("cpu0 130 11 55 1060 10 2 3 4 0 0\n");
    EXPECT_EQ(growth(first, second), (CoreTicks{.user = 30, .system = 8, .idle = 65, .nice = 1}));
}

TEST_F(LinuxProcessorTicksSourceTest, FirstReadHandsOnTheLowBits) {
    EXPECT_EQ(read("cpu0 4294967301 10 50 1000\n"),
              (Cores{{.user = 5, .system = 50, .idle = 1000, .nice = 10}}));
}

TEST_F(LinuxProcessorTicksSourceTest, AccumulatorsWrapAt32Bits) {
    const auto first = read("cpu0 4294967290 0 0 0\n");
    const auto second = read("cpu0 4294967306 0 0 0\n");
    EXPECT_EQ(second[0].user, 10U);
    EXPECT_EQ(growth(first, second).user, 16U);
}

TEST_F(LinuxProcessorTicksSourceTest, CounterThatFallsALittleAddsNothingAndTheOthersCount) {
    const auto first = read("cpu0 100 0 50 1000\n");
    const auto second = read("cpu0 200 0 50 999\n");
    EXPECT_EQ(growth(first, second), (CoreTicks{.user = 100, .system = 0, .idle = 0, .nice = 0}));
}

TEST_F(LinuxProcessorTicksSourceTest, CounterThatFellALittleGoesOnFromItsNewValue) {
    const auto first = read("cpu0 100 0 50 1000\n");
    read("cpu0 100 0 50 990\n");
    const auto third = read("cpu0 100 0 50 1010\n");
    EXPECT_EQ(growth(first, third).idle, 20U);
}

TEST_F(LinuxProcessorTicksSourceTest, FallByHundredTicksIsACorrection) {
    const auto first = read("cpu0 100 0 50 1000\n");
    EXPECT_EQ(growth(first, read("cpu0 110 0 50 900\n")).user, 10U);
}

TEST_F(LinuxProcessorTicksSourceTest, FallByMoreThanHundredTicksAddsNothingForTheWholeCore) {
    const auto first = read("cpu0 100 0 50 10000\ncpu1 100 0 50 10000\n");
    const auto second = read("cpu0 160 0 60 9899\ncpu1 160 0 60 10130\n");
    EXPECT_EQ(growth(first, second, 0), CoreTicks{});
    EXPECT_EQ(growth(first, second, 1), (CoreTicks{.user = 60, .system = 10, .idle = 130, .nice = 0}));
}

TEST_F(LinuxProcessorTicksSourceTest, FallOfAnyCounterByMoreThanHundredTicksIsANewStart) {
    for (const char* fallen : {"cpu0 4899 5100 5100 5100\n", "cpu0 5100 4899 5100 5100\n",
                               "cpu0 5100 5100 4899 5100\n", "cpu0 5100 5100 5100 4899\n"}) {
        LinuxProcessorTicksSource own(std::make_shared<StatFile>(tree.root()), {});
        Cores before;
        Cores after;
        tree.write("proc/stat", "cpu0 5000 5000 5000 5000\nintr 0\n");
        ASSERT_TRUE(own.read(before));
        tree.write("proc/stat", std::string(fallen) + "intr 0\n");
        ASSERT_TRUE(own.read(after));
        EXPECT_EQ(after, before) << fallen;
    }
}

TEST_F(LinuxProcessorTicksSourceTest, CoreCountsOnAfterItsCountersStartedAnew) {
    read("cpu0 100 0 50 400000\n");
    const auto second = read("cpu0 160 0 60 50000\n");
    const auto third = read("cpu0 200 0 80 50140\n");
    EXPECT_EQ(growth(second, third), (CoreTicks{.user = 40, .system = 20, .idle = 140, .nice = 0}));
}

TEST_F(LinuxProcessorTicksSourceTest, GuestTimeIsNotAddedTwice) {
    const auto first = read("cpu0 100 10 0 0 0 0 0 0 0 0\n");
    const auto second = read("cpu0 150 15 0 0 0 0 0 0 50 5\n");
    EXPECT_EQ(growth(first, second), (CoreTicks{.user = 50, .system = 0, .idle = 0, .nice = 5}));
}

TEST_F(LinuxProcessorTicksSourceTest, AnotherSetOfCoresOfTheSameSizeGivesNoNonsense) {
    const auto first = read("cpu0 100 0 0 1000\ncpu1 200 0 0 2000\n");
    const auto second = read("cpu0 110 0 0 1090\ncpu5 900000 0 0 5\n");
    EXPECT_EQ(growth(first, second, 0), (CoreTicks{.user = 10, .system = 0, .idle = 90, .nice = 0}));
    EXPECT_EQ(growth(first, second, 1), CoreTicks{});
    const auto third = read("cpu0 110 0 0 1090\ncpu5 900020 0 0 85\n");
    EXPECT_EQ(growth(second, third, 1), (CoreTicks{.user = 20, .system = 0, .idle = 80, .nice = 0}));
}

TEST_F(LinuxProcessorTicksSourceTest, CoreThatMovesToAnotherPositionKeepsItsOwnCounters) {
    const auto first = read("cpu1 100 0 0 1000\ncpu2 200 0 0 2000\n");
    const auto second = read("cpu2 230 0 0 2070\ncpu3 7 0 0 7\n");
    EXPECT_EQ(growth(first, second, 0), (CoreTicks{.user = 30, .system = 0, .idle = 70, .nice = 0}));
}

TEST_F(LinuxProcessorTicksSourceTest, CoreThatGoesOfflineShortensTheList) {
    EXPECT_EQ(read("cpu0 1 1 1 1\ncpu1 1 1 1 1\n").size(), 2U);
    EXPECT_EQ(read("cpu0 1 1 1 1\n").size(), 1U);
}

TEST_F(LinuxProcessorTicksSourceTest, EfficiencyCoresComeFirst) {
    tree.write("proc/stat", "cpu0 10 0 0 0\ncpu1 11 0 0 0\ncpu2 12 0 0 0\ncpu3 13 0 0 0\nintr 0\n");
    LinuxProcessorTicksSource hybrid(std::make_shared<StatFile>(tree.root()), {1, 3});
    Cores cores;
    ASSERT_TRUE(hybrid.read(cores));
    ASSERT_EQ(cores.size(), 4U);
    EXPECT_EQ(cores[0].user, 11U);
    EXPECT_EQ(cores[1].user, 13U);
    EXPECT_EQ(cores[2].user, 10U);
    EXPECT_EQ(cores[3].user, 12U);
}

TEST_F(LinuxProcessorTicksSourceTest, MissingFileIsAFailure) {
    Cores cores;
    EXPECT_FALSE(source.read(cores));
}

TEST_F(LinuxProcessorTicksSourceTest, FileWithoutACoreLineIsAFailure) {
    tree.write("proc/stat", "cpu  1 2 3 4\nintr 0\n");
    Cores cores;
    EXPECT_FALSE(source.read(cores));
}

TEST_F(LinuxProcessorTicksSourceTest, ReadAfterAFailureSpansTheGap) {
    const auto first = read("cpu0 100 0 0 1000\n");
    tree.write("proc/stat", "");
    Cores cores;
    EXPECT_FALSE(source.read(cores));
    EXPECT_EQ(growth(first, read("cpu0 150 0 0 1050\n")).user, 50U);
}

}  // namespace
}  // namespace velmora
