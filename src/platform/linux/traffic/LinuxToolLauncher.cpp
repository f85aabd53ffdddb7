#include "platform/linux/traffic/LinuxToolLauncher.h"

#include "platform/linux/files/FileDescriptor.h"
#include "platform/linux/traffic/ParentMark.h"
#include "platform/linux/traffic/TerminalReader.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>
#include <utility>

namespace velmora {
namespace {

struct Terminal {
    FileDescriptor master;
    FileDescriptor slave;
};

std::optional<Terminal> openTerminal() {
    Terminal terminal;
    terminal.master = FileDescriptor(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK));
    if (!terminal.master || ::grantpt(terminal.master.get()) != 0 || ::unlockpt(terminal.master.get()) != 0)
        return std::nullopt;
    terminal.slave =
        FileDescriptor(::ioctl(terminal.master.get(), TIOCGPTPEER, O_RDWR | O_NOCTTY | O_CLOEXEC));
    if (!terminal.slave) return std::nullopt;
    // As it comes, a terminal turns each newline into two characters.
    termios settings{};
    if (::tcgetattr(terminal.slave.get(), &settings) == 0) {
        ::cfmakeraw(&settings);
        ::tcsetattr(terminal.slave.get(), TCSANOW, &settings);
    }
    return terminal;
}

/// This process's environment with the mark in it.
std::vector<std::string> markedEnvironment() {
    std::vector<std::string> variables;
    const std::string name = std::string(ParentMark::kVariable) + "=";
    for (char** variable = environ; variable != nullptr && *variable != nullptr; ++variable) {
        if (!std::string_view(*variable).starts_with(name)) variables.emplace_back(*variable);
    }
    if (const auto mark = ParentMark::ofProcess(SystemRoot(), ::getpid()))
        variables.push_back(name + mark->text());
    return variables;
}

std::vector<char*> pointersTo(std::vector<std::string>& words) {
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// -1 on failure.
pid_t spawn(const std::string& path, const std::vector<std::string>& arguments, int output) {
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    // First, in case this process has no standard input and the terminal took its number.
    ::posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    ::posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);

    // A program that takes its signals from a descriptor blocks them, and a child inherits that.
    posix_spawnattr_t attributes;
    ::posix_spawnattr_init(&attributes);
    sigset_t none;
    sigset_t all;
    ::sigemptyset(&none);
    ::sigfillset(&all);
    ::posix_spawnattr_setsigmask(&attributes, &none);
    ::posix_spawnattr_setsigdefault(&attributes, &all);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);

    std::vector<std::string> words{path};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> variables = markedEnvironment();
    const std::vector<char*> wordPointers = pointersTo(words);
    const std::vector<char*> variablePointers = pointersTo(variables);
    pid_t pid = -1;
    const int failed = ::posix_spawn(&pid, path.c_str(), &actions, &attributes, wordPointers.data(),
                                     variablePointers.data());
    ::posix_spawnattr_destroy(&attributes);
    ::posix_spawn_file_actions_destroy(&actions);
    return failed == 0 ? pid : -1;
}

}  // namespace

class LinuxToolLauncher::Child final : public ToolTask {
public:
    explicit Child(pid_t pid)
        : m_pid(pid), m_descriptor(static_cast<int>(::syscall(SYS_pidfd_open, pid, 0))) {}

    /// A process descriptor becomes readable when its process ends.
    void watch(RunLoop& runLoop) {
        if (!m_descriptor) return;
        m_watch = runLoop.watch(m_descriptor.get(), RunLoop::Readiness::readable, [this] {
            if (!isRunning()) m_watch.reset();
        });
    }
    void unwatch() { m_watch.reset(); }

    bool isRunning() override {
        if (m_hasEnded) return false;
        int status = 0;
        const pid_t ended = ::waitpid(m_pid, &status, WNOHANG);
        m_hasEnded = ended == m_pid || (ended < 0 && errno == ECHILD);
        return !m_hasEnded;
    }
    void terminate() override {
        // Until it is waited for, nobody else can have the number.
        if (isRunning()) ::kill(m_pid, SIGTERM);
    }

private:
    pid_t m_pid;
    FileDescriptor m_descriptor;
    bool m_hasEnded = false;
    Subscription m_watch;
};

LinuxToolLauncher::LinuxToolLauncher(RunLoop& runLoop) : m_runLoop(runLoop) {}

LinuxToolLauncher::~LinuxToolLauncher() {
    for (const auto& child : m_children) child->unwatch();
}

bool LinuxToolLauncher::fileExists(const std::string& path) const {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0;
}

std::optional<LaunchedTool> LinuxToolLauncher::launchOnTerminal(const std::string& path,
                                                                const std::vector<std::string>& arguments) {
    std::erase_if(m_children, [](const auto& child) { return !child->isRunning(); });
    auto terminal = openTerminal();
    if (!terminal) return std::nullopt;
    const pid_t pid = spawn(path, arguments, terminal->slave.get());
    if (pid < 0) return std::nullopt;
    auto child = std::make_shared<Child>(pid);
    child->watch(m_runLoop);
    m_children.push_back(child);
    return LaunchedTool{std::move(child),
                        std::make_unique<TerminalReader>(std::move(terminal->master), m_runLoop)};
}

std::string toolPath(const std::string& executable, const std::string& name) {
    const std::string folder = executable.substr(0, executable.rfind('/') + 1);
    const std::array<std::string, 3> places = {folder + name, folder + "../libexec/velmora/" + name,
                                               folder + "../lib/velmora/" + name};
    for (const std::string& place : places) {
        if (::access(place.c_str(), X_OK) == 0) return place;
    }
    return places.front();
}

}  // namespace velmora
