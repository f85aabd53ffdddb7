#include "platform/linux/processor/LinuxTaskCountSource.h"

#include "platform/linux/files/SystemFile.h"
#include "platform/linux/files/SystemTree.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmora {
namespace {

TEST(LinuxTaskCountSourceTest, CapturedTreeIsCounted) {
    const SystemTree tree;
    tree.write("proc/loadavg", "0.15 0.10 0.08 2/123 4567\n");
    for (const char* name : {"1", "2", "4567", "self", "12x"}) {
        tree.write(std::string("proc/") + name + "/comm", "x\n");
    }
    LinuxTaskCountSource source(tree.root());
    EXPECT_EQ(source.read(), (TaskThreadCounts{3, 123}));
    tree.write("proc/99/comm", "x\n");
    EXPECT_EQ(source.read(), (TaskThreadCounts{4, 123}));
}

TEST(LinuxTaskCountSourceTest, MissingLoadFileIsAbsent) {
    const SystemTree tree;
    tree.write("proc/1/comm", "x\n");
    EXPECT_EQ(LinuxTaskCountSource(tree.root()).read(), std::nullopt);
}

TEST(LinuxTaskCountSourceTest, MissingFolderIsAbsent) {
    const SystemTree tree;
    EXPECT_EQ(LinuxTaskCountSource(tree.root()).read(), std::nullopt);
}

int listedProcesses() {
    const auto names = systemFolderEntries("/proc");
    return static_cast<int>(std::ranges::count_if(names, isDigits));
}

TEST(LinuxTaskCountSourceTest, NewProcessesOfTheRunningSystemAreCounted) {
    LinuxTaskCountSource source{SystemRoot()};
    const auto before = source.read();
    ASSERT_TRUE(before);
    constexpr int kChildren = 50;
    std::vector<pid_t> children;
    for (int child = 0; child < kChildren; ++child) {
        const pid_t pid = ::fork();
        if (pid == 0) {
            ::pause();
            ::_exit(0);
        }
        children.push_back(pid);
    }
    const auto during = source.read();
    const int listed = listedProcesses();
    for (const pid_t child : children) {
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
    }
    ASSERT_TRUE(during);
    // Other processes of the machine come and go meanwhile.
    constexpr int kOthers = 20;
    EXPECT_NEAR(during->tasks - before->tasks, kChildren, kOthers);
    EXPECT_NEAR(during->tasks, listed, kOthers);
    EXPECT_GE(during->threads, during->tasks - kOthers);
}

}  // namespace
}  // namespace velmora
