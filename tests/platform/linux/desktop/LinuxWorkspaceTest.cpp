#include "platform/linux/desktop/LinuxWorkspace.h"

#include "platform/linux/files/TemporaryFolder.h"
#include "platform/linux/store/JsonBundle.h"

#include <sched.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace velmora {
namespace {

/// A child that runs a copy of the system's `sleep` under a path of the test's own, ended with the test.
class SleepingProgram {
public:
    explicit SleepingProgram(const std::filesystem::path& copy) {
        if (!std::filesystem::exists(copy)) std::filesystem::copy_file("/bin/sleep", copy);
        std::string path = copy.native();
        std::string time = "60";
        char* const arguments[] = {path.data(), time.data(), nullptr};
        if (::posix_spawn(&m_pid, path.c_str(), nullptr, nullptr, arguments, environ) != 0) m_pid = 0;
    }
    ~SleepingProgram() {
        if (m_pid <= 0) return;
        ::kill(m_pid, SIGKILL);
        wait();
    }
    SleepingProgram(const SleepingProgram&) = delete;
    SleepingProgram& operator=(const SleepingProgram&) = delete;

    pid_t pid() const { return m_pid; }
    /// The signal that ended it; 0 for none.
    int wait() {
        int status = 0;
        ::waitpid(m_pid, &status, 0);
        m_pid = 0;
        return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }

private:
    pid_t m_pid = 0;
};

const RunningApplication* find(const std::vector<RunningApplication>& applications, std::int64_t pid) {
    const auto found = std::ranges::find(applications, pid, &RunningApplication::pid);
    return found != applications.end() ? &*found : nullptr;
}

class LinuxWorkspaceTest : public ::testing::Test {
protected:
    RunningApplication listed(const SleepingProgram& program) const {
        const auto applications = workspace.runningApplications();
        const auto* found = find(applications, program.pid());
        return found ? *found : RunningApplication{};
    }

    TemporaryFolder folder;
    std::filesystem::path copy = folder.path() / "velmora-sleeper";
    LinuxWorkspace workspace{nullptr, nullptr};
};

TEST_F(LinuxWorkspaceTest, OwnProcessIsListedWithItsExecutable) {
    EXPECT_EQ(workspace.ownProcess(), ::getpid());
    const auto applications = workspace.runningApplications();
    const auto* own = find(applications, ::getpid());
    ASSERT_NE(own, nullptr);
    EXPECT_EQ(own->executablePath, runningExecutable());
    EXPECT_EQ(own->bundleIdentifier, std::nullopt);
}

TEST_F(LinuxWorkspaceTest, RunningProgramIsListedWithItsPath) {
    const SleepingProgram program(copy);
    EXPECT_EQ(listed(program).executablePath, copy.native());
}

TEST_F(LinuxWorkspaceTest, ProgramWhoseFileWasReplacedKeepsItsPath) {
    const SleepingProgram program(copy);
    std::filesystem::remove(copy);
    EXPECT_EQ(listed(program).executablePath, copy.native());
}

TEST_F(LinuxWorkspaceTest, IdentifiersComeFromThoseWhoKnow) {
    const SleepingProgram program(copy);
    int asked = 0;
    const LinuxWorkspace knowing(
        [&] {
            ++asked;
            return std::map<std::int64_t, std::string>{{program.pid(), "com.example.Sleeper"}};
        },
        nullptr);
    const auto applications = knowing.runningApplications();
    EXPECT_EQ(asked, 1);
    ASSERT_NE(find(applications, program.pid()), nullptr);
    EXPECT_EQ(find(applications, program.pid())->bundleIdentifier, "com.example.Sleeper");
}

TEST_F(LinuxWorkspaceTest, ProcessThatEndedButWasNotWaitedForIsNotListed) {
    SleepingProgram program(copy);
    ::kill(program.pid(), SIGKILL);
    siginfo_t information{};
    ASSERT_EQ(::waitid(P_PID, static_cast<id_t>(program.pid()), &information, WEXITED | WNOWAIT), 0);
    const auto applications = workspace.runningApplications();
    EXPECT_EQ(find(applications, program.pid()), nullptr);
}

TEST_F(LinuxWorkspaceTest, PoliteRequestIsATermination) {
    SleepingProgram program(copy);
    const auto held = workspace.hold(listed(program));
    ASSERT_NE(held, nullptr);
    EXPECT_FALSE(held->isTerminated());
    held->terminate();
    EXPECT_EQ(program.wait(), SIGTERM);
    EXPECT_TRUE(held->isTerminated());
}

TEST_F(LinuxWorkspaceTest, ForcedRequestIsAKill) {
    SleepingProgram program(copy);
    const auto held = workspace.hold(listed(program));
    ASSERT_NE(held, nullptr);
    held->forceTerminate();
    EXPECT_EQ(program.wait(), SIGKILL);
}

TEST_F(LinuxWorkspaceTest, EndedProcessIsTerminatedBeforeAnybodyWaitedForIt) {
    SleepingProgram program(copy);
    const auto held = workspace.hold(listed(program));
    ASSERT_NE(held, nullptr);
    ::kill(program.pid(), SIGKILL);
    siginfo_t information{};
    ASSERT_EQ(::waitid(P_PID, static_cast<id_t>(program.pid()), &information, WEXITED | WNOWAIT), 0);
    EXPECT_TRUE(held->isTerminated());
}

TEST_F(LinuxWorkspaceTest, RequestsToAnEndedProcessDoNothing) {
    SleepingProgram program(copy);
    const auto held = workspace.hold(listed(program));
    ASSERT_NE(held, nullptr);
    ::kill(program.pid(), SIGKILL);
    program.wait();
    held->terminate();
    held->forceTerminate();
    EXPECT_TRUE(held->isTerminated());
}

TEST_F(LinuxWorkspaceTest, ProgramThatIsGoneCannotBeHeld) {
    SleepingProgram program(copy);
    const RunningApplication application = listed(program);
    ::kill(program.pid(), SIGKILL);
    program.wait();
    EXPECT_EQ(workspace.hold(application), nullptr);
}

TEST_F(LinuxWorkspaceTest, ProcessThatIsAnotherProgramByNowCannotBeHeld) {
    const SleepingProgram program(copy);
    RunningApplication application = listed(program);
    application.executablePath = "/usr/bin/velmora";
    EXPECT_EQ(workspace.hold(application), nullptr);
}

TEST_F(LinuxWorkspaceTest, ProcessOfAnotherPIDNamespaceIsNotListed) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const pid_t maker = ::fork();
    if (maker == 0) {
        // Its next child is the first process of a new namespace.
        if (::unshare(CLONE_NEWPID) != 0 && ::unshare(CLONE_NEWUSER | CLONE_NEWPID) != 0) ::_exit(1);
        const pid_t inside = ::fork();
        if (inside == 0) {
            ::execl("/bin/sleep", "sleep", "60", nullptr);
            ::_exit(1);
        }
        if (::write(ends[1], &inside, sizeof inside) != sizeof inside) ::_exit(1);
        ::_exit(0);
    }
    ::close(ends[1]);
    pid_t inside = 0;
    const ssize_t length = ::read(ends[0], &inside, sizeof inside);
    ::close(ends[0]);
    ::waitpid(maker, nullptr, 0);
    // A container that forbids namespaces inside it has no such processes to show.
    if (length != ssize_t{sizeof inside}) GTEST_SKIP() << "no PID namespaces may be made here";
    const auto applications = workspace.runningApplications();
    EXPECT_EQ(find(applications, inside), nullptr);
    ::kill(inside, SIGKILL);
}

TEST_F(LinuxWorkspaceTest, AddressGoesToTheOpener) {
    std::vector<std::string> opened;
    LinuxWorkspace opening(nullptr, [&](const std::string& url) { opened.push_back(url); });
    opening.open("https://velmora.example/");
    workspace.open("https://velmora.example/");
    EXPECT_EQ(opened, std::vector<std::string>{"https://velmora.example/"});
}

}  // namespace
}  // namespace velmora
