#include "base/ParseNumber.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "platform/linux/files/SystemFile.h"
#include "platform/linux/files/TemporaryFolder.h"
#include "platform/linux/traffic/LinuxToolLauncher.h"
#include "platform/linux/traffic/ParentMark.h"
#include "platform/linux/traffic/TerminalReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <string>

namespace velmora {
namespace {

using testing::HasSubstr;

class LinuxToolLauncherTest : public testing::Test {
protected:
    LaunchedTool launchShell(const std::string& script) {
        auto tool = launcher.launchOnTerminal("/bin/sh", {"-c", script});
        EXPECT_TRUE(tool);
        tool->output->setReadabilityHandler([this](std::string_view bytes) {
            if (bytes.empty()) hasEnded = true;
            text += bytes;
        });
        return std::move(*tool);
    }
    /// The process id that the tool printed.
    pid_t pidOfText() const {
        return parseNumber<pid_t>(std::string_view(text).substr(0, text.find('\n'))).value_or(0);
    }
    void readToEnd() {
        while (!hasEnded && loop.pollWatches() > 0) {
        }
    }

    FakeClock clock;
    FakeRunLoop loop{clock};
    LinuxToolLauncher launcher{loop};
    std::string text;
    bool hasEnded = false;
};

TEST_F(LinuxToolLauncherTest, OutputIsATerminalThatLeavesLinesAsTheyAre) {
    const auto tool = launchShell("test -t 1 && echo terminal; test -t 0 || echo no-input; echo lost >&2");
    readToEnd();
    EXPECT_EQ(text, "terminal\nno-input\n");
    EXPECT_TRUE(hasEnded);
}

TEST_F(LinuxToolLauncherTest, ToolIsToldItsParent) {
    const auto tool = launchShell("echo $VELMORA_PARENT");
    readToEnd();
    EXPECT_EQ(text, ParentMark::ofProcess(SystemRoot(), ::getpid())->text() + "\n");
}

TEST_F(LinuxToolLauncherTest, ToolInheritsNoFilesAndNoBlockedSignals) {
    // Without the flag that closes it.
    const FileDescriptor leaky(::fcntl(STDIN_FILENO, F_DUPFD, 100));
    ASSERT_EQ(leaky.get(), 100);
    sigset_t term;
    sigset_t before;
    ::sigemptyset(&term);
    ::sigaddset(&term, SIGTERM);
    ::sigprocmask(SIG_BLOCK, &term, &before);
    const auto tool = launchShell("grep SigBlk /proc/self/status; test -e /proc/$$/fd/100 && echo leaked");
    ::sigprocmask(SIG_SETMASK, &before, nullptr);
    readToEnd();
    EXPECT_EQ(text, "SigBlk:\t0000000000000000\n");
}

TEST_F(LinuxToolLauncherTest, TerminatedToolEndsAndIsWaitedFor) {
    auto tool = launchShell("echo $$; exec sleep 300");
    while (!text.ends_with("\n") && loop.pollWatches() > 0) {
    }
    const pid_t pid = pidOfText();
    EXPECT_TRUE(tool.task->isRunning());
    tool.task->terminate();
    readToEnd();
    while (tool.task->isRunning() && loop.pollWatches() > 0) {
    }
    EXPECT_FALSE(tool.task->isRunning());
    EXPECT_EQ(::waitpid(pid, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
    tool.task->terminate();  // Nothing to end any more.
}

TEST_F(LinuxToolLauncherTest, EndedToolIsWaitedForThoughNobodyHoldsItsTask) {
    {
        const auto tool = launchShell("echo $$");
        readToEnd();
    }
    while (loop.watcherCount() > 0 && loop.pollWatches() > 0) {
    }
    EXPECT_EQ(loop.watcherCount(), 0U);
    EXPECT_EQ(::waitpid(pidOfText(), nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(LinuxToolLauncherTest, TerminalThatHasEndedIsNotWatchedForEver) {
    const auto tool = launchShell("exit 0");
    readToEnd();
    while (tool.task->isRunning() && loop.pollWatches() > 0) {
    }
    loop.pollWatches(std::chrono::milliseconds(0));
    EXPECT_EQ(loop.watcherCount(), 0U);
}

TEST_F(LinuxToolLauncherTest, FailedLaunchLeavesNothingOpen) {
    const std::size_t before = systemFolderEntries("/proc/self/fd").size();
    EXPECT_FALSE(launcher.launchOnTerminal("/nonexistent/tool", {}));
    const TemporaryFolder folder;
    EXPECT_FALSE(launcher.launchOnTerminal(folder.write("tool", "no program"), {}));
    EXPECT_EQ(systemFolderEntries("/proc/self/fd").size(), before);
    EXPECT_EQ(loop.watcherCount(), 0U);
}

TEST_F(LinuxToolLauncherTest, FileExistsIsAboutFiles) {
    EXPECT_TRUE(launcher.fileExists("/bin/sh"));
    EXPECT_FALSE(launcher.fileExists("/nonexistent/tool"));
}

TEST_F(LinuxToolLauncherTest, HandlerThatIsClearedReadsNoMore) {
    const auto tool = launchShell("echo a; exec sleep 300");
    while (text.empty() && loop.pollWatches() > 0) {
    }
    tool.output->setReadabilityHandler(nullptr);
    EXPECT_EQ(loop.watcherCount(), 1U);  // That of the process.
    tool.output->close();
    tool.task->terminate();
}

TEST_F(LinuxToolLauncherTest, CharactersThatTheTerminalCutsArriveWhole) {
    // Three bytes each, and no power of two is a multiple of three.
    const auto tool =
        launchShell("i=0; while [ $i -lt 4000 ]; do printf '\\342\\202\\254'; i=$((i+1)); done");
    std::string whole;
    tool.output->setReadabilityHandler([&](std::string_view bytes) {
        hasEnded = bytes.empty();
        EXPECT_EQ(bytes.size() % 3, 0U);
        whole += bytes;
    });
    readToEnd();
    EXPECT_EQ(whole.size(), 12000U);
}

TEST(TerminalReaderTest, UnfinishedCharacterIsMeasured) {
    EXPECT_EQ(unfinishedCharacterLength(""), 0U);
    EXPECT_EQ(unfinishedCharacterLength("abc"), 0U);
    EXPECT_EQ(unfinishedCharacterLength("a\xE2"), 1U);
    EXPECT_EQ(unfinishedCharacterLength("a\xE2\x82"), 2U);
    EXPECT_EQ(unfinishedCharacterLength("a\xE2\x82\xAC"), 0U);
    EXPECT_EQ(unfinishedCharacterLength("\xF0\x9F\x98"), 3U);
    EXPECT_EQ(unfinishedCharacterLength("\x82\x82\x82\x82"),
              0U);  // Never a beginning: for the reader to drop.
}

TEST(ToolPathTest, ToolBesideTheProgramComesFirstThenTheOnesOfAnInstallation) {
    const TemporaryFolder folder;
    const std::string program = folder.path() / "bin/velmora";
    const auto make = [&folder](const std::string& name) {
        std::filesystem::permissions(folder.write(name, ""), std::filesystem::perms::owner_all);
    };
    EXPECT_EQ(toolPath(program, "nettop"), (folder.path() / "bin/nettop").native());
    make("lib/velmora/nettop");
    make("bin/velmora");
    EXPECT_THAT(toolPath(program, "nettop"), HasSubstr("bin/../lib/velmora/nettop"));
    make("libexec/velmora/nettop");
    EXPECT_THAT(toolPath(program, "nettop"), HasSubstr("bin/../libexec/velmora/nettop"));
    make("bin/nettop");
    EXPECT_EQ(toolPath(program, "nettop"), (folder.path() / "bin/nettop").native());
}

}  // namespace
}  // namespace velmora
