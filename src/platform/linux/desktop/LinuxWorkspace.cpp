#include "platform/linux/desktop/LinuxWorkspace.h"

#include "base/FormatText.h"
#include "base/ParseNumber.h"
#include "platform/linux/files/FileDescriptor.h"
#include "platform/linux/processes/ExecutableLink.h"

#include <poll.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <filesystem>
#include <utility>

namespace velmora {
namespace {

std::string processFile(std::int64_t pid, std::string_view name) {
    return formatText("/proc/%d/%s", {pid, name});
}

std::optional<ino_t> pidNamespace(const std::string& link) {
    struct stat status {};
    if (::stat(link.c_str(), &status) != 0) return std::nullopt;
    return status.st_ino;
}

bool isOwnUsersProcess(const std::string& folder) {
    struct stat status {};
    return ::stat(folder.c_str(), &status) == 0 && status.st_uid == ::geteuid();
}

class HeldProcess final : public Workspace::Application {
public:
    explicit HeldProcess(FileDescriptor process) : m_process(std::move(process)) {}

    // A process descriptor becomes readable when its process has ended.
    bool isTerminated() const override {
        pollfd request{m_process.get(), POLLIN, 0};
        return ::poll(&request, 1, 0) > 0;
    }
    void terminate() override { send(SIGTERM); }
    void forceTerminate() override { send(SIGKILL); }

private:
    void send(int signal) { ::syscall(SYS_pidfd_send_signal, m_process.get(), signal, nullptr, 0); }

    FileDescriptor m_process;
};

}  // namespace

LinuxWorkspace::LinuxWorkspace(BundleIdentifiers identifiers, Opener opener)
    : m_identifiers(std::move(identifiers)), m_opener(std::move(opener)) {}

std::int64_t LinuxWorkspace::ownProcess() const {
    return ::getpid();
}

std::vector<RunningApplication> LinuxWorkspace::runningApplications() const {
    const auto identifiers = m_identifiers ? m_identifiers() : std::map<std::int64_t, std::string>();
    const auto ownNamespace = pidNamespace("/proc/self/ns/pid");
    std::vector<RunningApplication> applications;
    std::error_code failed;
    std::filesystem::directory_iterator processes("/proc", failed);
    for (; !failed && processes != std::filesystem::directory_iterator(); processes.increment(failed)) {
        const auto pid = parseNumber<std::int64_t>(processes->path().filename().native());
        if (!pid || !isOwnUsersProcess(processes->path().native())) continue;
        if (pidNamespace(processFile(*pid, "ns/pid")) != ownNamespace) continue;
        RunningApplication application;
        application.pid = *pid;
        application.executablePath = executableOfLink(processFile(*pid, "exe"));
        if (const auto known = identifiers.find(*pid); known != identifiers.end()) {
            application.bundleIdentifier = known->second;
        }
        // A kernel thread or an ended process that nobody waited for is no running program.
        if (application.executablePath || application.bundleIdentifier) {
            applications.push_back(std::move(application));
        }
    }
    return applications;
}

std::unique_ptr<Workspace::Application> LinuxWorkspace::hold(const RunningApplication& application) const {
    FileDescriptor process(static_cast<int>(::syscall(SYS_pidfd_open, application.pid, 0)));
    if (!process) return nullptr;
    // The descriptor was opened by number. If the executable is still the listed one, so is the process.
    if (executableOfLink(processFile(application.pid, "exe")) != application.executablePath) return nullptr;
    return std::make_unique<HeldProcess>(std::move(process));
}

void LinuxWorkspace::open(const std::string& url) {
    if (m_opener) m_opener(url);
}

}  // namespace velmora
