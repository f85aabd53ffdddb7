#include "platform/linux/processor/LinuxLoadAverageSource.h"

#include "platform/linux/files/SystemTree.h"
#include "platform/linux/processor/ProcLoadAverage.h"

#include <gtest/gtest.h>

#include <stdlib.h>

namespace velmora {
namespace {

TEST(LinuxLoadAverageSourceTest, CapturedTreeAnswersFromItsFile) {
    const SystemTree tree;
    tree.write("proc/loadavg", "1.50 1.25 0.75 3/1234 9876\n");
    EXPECT_EQ(LinuxLoadAverageSource(tree.root()).read(), (LoadAverage{1.5, 1.25, 0.75}));
}

TEST(LinuxLoadAverageSourceTest, MissingOrMalformedFileGivesZeros) {
    const SystemTree tree;
    LinuxLoadAverageSource source(tree.root());
    EXPECT_EQ(source.read(), LoadAverage{});
    tree.write("proc/loadavg", "1.50 1.25\n");
    EXPECT_EQ(source.read(), LoadAverage{});
}

TEST(LinuxLoadAverageSourceTest, RunningSystemAnswersAsTheLibraryDoes) {
    const LoadAverage load = LinuxLoadAverageSource(SystemRoot()).read();
    double expected[3] = {};
    ASSERT_EQ(::getloadavg(expected, 3), 3);
    // The kernel makes new averages every five seconds; one may have come in between.
    EXPECT_NEAR(load.one, expected[0], 0.5);
    EXPECT_NEAR(load.five, expected[1], 0.2);
    EXPECT_NEAR(load.fifteen, expected[2], 0.1);
}

TEST(ProcLoadAverageTest, ThreadsStandBehindTheSlash) {
    const auto parsed = parseProcLoadAverage("0.15 0.10 0.08 2/123 4567\n");
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed->threads, 123);
    EXPECT_EQ(parsed->load, (LoadAverage{0.15, 0.10, 0.08}));
}

TEST(ProcLoadAverageTest, MalformedTextIsAbsent) {
    for (const char* text : {"", "\n", "0.1 0.2 0.3", "0.1 0.2 0.3 2/12", "0.1 0.2 0.3 212 5",
                             "0.1 x 0.3 2/12 5", "0.1 0.2 0.3 2/99999999999 5"}) {
        EXPECT_FALSE(parseProcLoadAverage(text)) << text;
    }
}

}  // namespace
}  // namespace velmora
