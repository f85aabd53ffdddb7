#include "base/FormatText.h"
#include "fakes/FakeSystemLog.h"
#include "platform/linux/files/SystemTree.h"
#include "platform/linux/processes/MadeUpProcesses.h"
#include "platform/linux/traffic/LinuxOrphanSource.h"
#include "platform/linux/traffic/ParentMark.h"
#include "samplers/NetTopSampler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

namespace velmora {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;
using namespace std::string_literals;

TEST(ParentMarkTest, TextIsReadBack) {
    const ParentMark mark{4711, 123456};
    EXPECT_EQ(mark.text(), "4711:123456");
    EXPECT_EQ(ParentMark::parse(mark.text()), mark);
}

TEST(ParentMarkTest, AnyOtherTextIsNone) {
    for (const auto& text :
         {""s, ":"s, "1"s, "1:"s, ":1"s, "0:1"s, "-1:1"s, "1:x"s, "1:1:1"s, "99999999999:1"s})
        EXPECT_FALSE(ParentMark::parse(text)) << text;
}

TEST(ParentMarkTest, VariableIsFoundAmongOthers) {
    EXPECT_EQ(ParentMark::inEnvironment("A=1\0VELMORA_PARENT=5:6\0B=2\0"s), (ParentMark{5, 6}));
    EXPECT_FALSE(ParentMark::inEnvironment("XVELMORA_PARENT=5:6\0VELMORA_PARENTS=5:6\0VELMORA_PARENT"s));
    EXPECT_FALSE(ParentMark::inEnvironment("VELMORA_PARENT=5:"s));
    EXPECT_FALSE(ParentMark::inEnvironment(""));
}

TEST(ParentMarkTest, ThisProcessIsAliveAndOneOfAnotherTimeIsNot) {
    const auto mark = ParentMark::ofProcess(SystemRoot(), ::getpid());
    ASSERT_TRUE(mark);
    EXPECT_TRUE(mark->isAlive(SystemRoot()));
    EXPECT_FALSE((ParentMark{mark->pid, mark->startTicks + 1}.isAlive(SystemRoot())));
}

TEST(ParentMarkTest, ProcessThatEndedAndWasNotWaitedForIsGone) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(0);
    siginfo_t info{};
    ASSERT_EQ(::waitid(P_PID, static_cast<id_t>(child), &info, WEXITED | WNOWAIT), 0);
    const auto mark = ParentMark::ofProcess(SystemRoot(), child);
    ASSERT_TRUE(mark);
    EXPECT_FALSE(mark->isAlive(SystemRoot()));
    ::waitpid(child, nullptr, 0);
}

class LinuxOrphanSourceTest : public testing::Test {
protected:
    void writeTool(std::int32_t pid, std::int32_t parent, const std::string& environment) const {
        writeProcess(tree.root(), {.pid = pid, .comm = "nettop", .parent = parent});
        tree.write(formatText("proc/%d/environ", {pid}), environment);
    }
    std::optional<ProcessParentage> parentage(std::int32_t pid) {
        source.listAll(buffer);
        return source.parentage(pid);
    }
    SystemTree tree;
    std::vector<std::int32_t> buffer = std::vector<std::int32_t>(8192);
    LinuxOrphanSource source{tree.root()};
};

TEST_F(LinuxOrphanSourceTest, ToolWhoseLauncherIsGoneHasParentOneWhoeverAdoptedIt) {
    writeTool(50, 40, "VELMORA_PARENT=30:100\0"s);
    EXPECT_EQ(parentage(50), (ProcessParentage{1, ::getuid()}));
    EXPECT_EQ(source.name(50), "nettop");
}

TEST_F(LinuxOrphanSourceTest, ToolWhoseLaunchersNumberPassedToAnotherHasParentOne) {
    writeProcess(tree.root(), {.pid = 30, .startTicks = 900});
    writeTool(50, 40, "VELMORA_PARENT=30:100\0"s);
    EXPECT_EQ(parentage(50)->parent, 1);
}

TEST_F(LinuxOrphanSourceTest, ToolWhoseLauncherLivesHasAnotherParent) {
    writeProcess(tree.root(), {.pid = 30, .startTicks = 100});
    writeTool(50, 30, "VELMORA_PARENT=30:100\0"s);
    writeTool(51, 1, "VELMORA_PARENT=30:100\0"s);
    EXPECT_EQ(parentage(50)->parent, 30);
    EXPECT_EQ(parentage(51)->parent, 30);
}

TEST_F(LinuxOrphanSourceTest, ToolWithoutTheMarkIsNoneOfOurs) {
    writeTool(50, 1, "HOME=/\0"s);
    EXPECT_EQ(parentage(50), std::nullopt);
    EXPECT_EQ(parentage(60), std::nullopt);
}

// Its launcher's number is that of somebody else out here, so it looked like an orphan.
TEST_F(LinuxOrphanSourceTest, ToolInsideAContainerIsNoneOfOurs) {
    writeProcess(tree.root(), {.pid = 30, .startTicks = 900});
    writeTool(50, 40, "VELMORA_PARENT=30:100\0"s);
    tree.link("proc/self/ns/pid", "pid:[4026531836]");
    tree.link("proc/50/ns/pid", "pid:[4026532999]");
    EXPECT_EQ(parentage(50), std::nullopt);
    tree.link("proc/50/ns/pid", "pid:[4026531836]");
    EXPECT_EQ(parentage(50)->parent, 1);
}

/// A program of another name that only sleeps, renamed to the tool's, with a launcher that has ended.
class LeftBehindTest : public testing::Test {
protected:
    void SetUp() override {
        // The reaper of one case would take the tool of another that runs at the same time.
        ASSERT_TRUE(m_turn);
        ASSERT_EQ(::flock(m_turn.get(), LOCK_EX), 0);
        std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
        std::filesystem::copy_file("/bin/sleep", folder.path() / "nettop");
    }
    ~LeftBehindTest() override {
        for (const pid_t pid : tools) {
            ::kill(pid, SIGKILL);
            ::waitpid(pid, nullptr, 0);
        }
    }
    pid_t leaveBehind(uid_t user) {
        const std::string path = folder.path() / "nettop";
        const std::string mark = "VELMORA_PARENT=1:18446744073709551615";
        const pid_t pid = ::fork();
        if (pid == 0) {
            if (user != ::getuid() && (::setgid(user) != 0 || ::setuid(user) != 0)) ::_exit(1);
            const char* const arguments[] = {path.c_str(), "300", nullptr};
            const char* const environment[] = {mark.c_str(), nullptr};
            ::execve(path.c_str(), const_cast<char**>(arguments), const_cast<char**>(environment));
            ::_exit(1);
        }
        tools.push_back(pid);
        // The kernel gives a program its new name first and shows its environment last.
        while (textOf(pid, "comm") != "nettop\n" || textOf(pid, "environ").find(mark) == std::string::npos)
            std::this_thread::yield();
        return pid;
    }
    static std::string textOf(pid_t pid, const std::string& name) {
        std::ifstream file(formatText("/proc/%d/%s", {pid, name}));
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static bool endsWithin(pid_t pid, int milliseconds) {
        const FileDescriptor process(static_cast<int>(::syscall(SYS_pidfd_open, pid, 0)));
        pollfd request{process.get(), POLLIN, 0};
        return ::poll(&request, 1, milliseconds) > 0;
    }

    TemporaryFolder folder;
    std::vector<pid_t> tools;
    FakeSystemLog log;

private:
    FileDescriptor m_turn{
        ::open((std::filesystem::temp_directory_path() / "velmora-left-behind.lock").c_str(),
               O_RDWR | O_CREAT | O_CLOEXEC, 0600)};
};

TEST_F(LeftBehindTest, ToolOfThisUserIsReapedAtTheNextStart) {
    const pid_t tool = leaveBehind(::getuid());
    LinuxOrphanSource source{SystemRoot()};
    NetTopSampler::reapOrphans(source, log);
    EXPECT_TRUE(endsWithin(tool, 5000));
    EXPECT_THAT(log.lines(), Contains(formatText("Velmora: reaped orphaned nettop pid=%d", {tool})));
}

TEST_F(LeftBehindTest, ToolOfAnotherUserIsLeftAlone) {
    // Only root can start a program as somebody else.
    if (::getuid() != 0) GTEST_SKIP();
    constexpr uid_t kNobody = 65534;
    const pid_t tool = leaveBehind(kNobody);
    LinuxOrphanSource source{SystemRoot()};
    NetTopSampler::reapOrphans(source, log);
    EXPECT_FALSE(endsWithin(tool, 0));
    EXPECT_THAT(log.lines(), Not(Contains(formatText("Velmora: reaped orphaned nettop pid=%d", {tool}))));
}

}  // namespace
}  // namespace velmora
