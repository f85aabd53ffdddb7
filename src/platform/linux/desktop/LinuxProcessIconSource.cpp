#include "platform/linux/desktop/LinuxProcessIconSource.h"

#include "base/FormatText.h"
#include "base/ParseNumber.h"
#include "platform/linux/desktop/ControlGroupApplication.h"
#include "platform/linux/desktop/LaunchedEntry.h"
#include "platform/linux/desktop/RegularFile.h"
#include "platform/linux/files/SystemFile.h"
#include "platform/linux/processes/ExecutableLink.h"
#include "platform/linux/processes/ProcessNames.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <utility>

namespace velmora {
namespace {

constexpr std::size_t kMostKnown = 512;
constexpr std::size_t kLargestFile = std::size_t{256} * 1024;

bool isOwnUsers(const std::string& folder) {
    struct stat status {};
    return ::stat(folder.c_str(), &status) == 0 && status.st_uid == ::geteuid();
}

/// A terminal's helper has the terminal's name and more.
bool isTerminalItself(const DesktopEntry& entry, std::string_view program) {
    const std::string_view terminal = ProgramIndex::programOf(entry.command);
    return terminal.empty() || program.starts_with(terminal);
}

bool isTerminal(const DesktopEntry& entry) {
    return std::ranges::find(entry.categories, "TerminalEmulator") != entry.categories.end();
}

}  // namespace

LinuxProcessIconSource::LinuxProcessIconSource(SystemRoot root, std::shared_ptr<DesktopEntries> entries)
    : m_root(std::move(root)), m_entries(std::move(entries)) {}

std::optional<std::string> LinuxProcessIconSource::iconOf(std::int32_t pid) {
    const auto looked = process(pid);
    if (!looked) return std::nullopt;
    follow();
    std::string key = looked->executable;
    for (const std::string& id : looked->unitIds) key.append("\n").append(id);
    if (const auto known = m_known.find(key); known != m_known.end()) return known->second;
    const Found found = application(*looked);
    auto icon = found && !found->entry.icon.empty() ? std::optional(found->entry.icon) : std::nullopt;
    // An interpreter runs one thing here and another there.
    if (looked->executable.empty() || ProcessNames::isInterpreter(looked->executable)) return icon;
    if (m_known.size() >= kMostKnown) m_known.clear();
    m_known.emplace(std::move(key), icon);
    return icon;
}

void LinuxProcessIconSource::follow() {
    if (m_entries->revision() == m_revision) return;
    m_index = ProgramIndex(m_entries->all());
    m_known.clear();
    m_revision = m_entries->revision();
}

std::optional<LinuxProcessIconSource::Process> LinuxProcessIconSource::process(std::int32_t pid) const {
    if (pid <= 0) return std::nullopt;
    const auto group = readSystemFile(file(pid, "cgroup"));
    Process process;
    process.pid = pid;
    process.executable = executableOfLink(file(pid, "exe")).value_or("");
    process.program = ProcessNames::lastComponent(process.executable);
    if (process.executable.empty()) {
        const auto name = readSystemFile(file(pid, "comm"));
        if (!name) return std::nullopt;
        std::string_view rest = *name;
        const std::string_view comm = nextLine(rest);
        if (!ProcessNames::mayBeCut(comm)) process.program = comm;
    }
    if (group) process.unitIds = applicationIdsOfControlGroup(*group);
    return process;
}

std::string LinuxProcessIconSource::file(std::int32_t pid, std::string_view name) const {
    return m_root.path(formatText("proc/%d/%s", {pid, name}));
}

LinuxProcessIconSource::Found LinuxProcessIconSource::application(const Process& process) {
    if (Found found = byUnit(process)) return found;
    if (Found found = byFlatpak(process)) return found;
    if (Found found = byLauncher(process)) return found;
    return m_index.find(process.program);
}

LinuxProcessIconSource::Found LinuxProcessIconSource::byUnit(const Process& process) {
    for (const std::string& id : process.unitIds) {
        Found found = m_entries->find(id);
        if (!found) continue;
        if (isTerminal(found->entry) && !isTerminalItself(found->entry, process.program)) return nullptr;
        return found;
    }
    return nullptr;
}

LinuxProcessIconSource::Found LinuxProcessIconSource::byFlatpak(const Process& process) {
    // Only a process that has mounts of its own can be shut in.
    const auto mounts = systemLinkName(file(process.pid, "ns/mnt"));
    if (!mounts || mounts == systemLinkName(m_root.path("proc/self/ns/mnt"))) return nullptr;
    const auto text = readRegularFile(file(process.pid, "root/.flatpak-info"), kLargestFile);
    const auto id = text ? applicationOfFlatpakInfo(*text) : std::nullopt;
    return id ? m_entries->find(*id) : nullptr;
}

LinuxProcessIconSource::Found LinuxProcessIconSource::byLauncher(const Process& process) {
    if (!isOwnUsers(file(process.pid, ""))) return nullptr;
    const auto environment = readRegularFile(file(process.pid, "environ"), kLargestFile);
    const auto path = environment ? launchedEntry(*environment, process.pid) : std::nullopt;
    if (!path) return nullptr;
    if (Found found = m_entries->at(*path)) return found;
    // An entry that starts a program at login lies elsewhere, and has the name of the application's.
    std::string_view name = ProcessNames::lastComponent(*path);
    constexpr std::string_view kEnding = ".desktop";
    if (!name.ends_with(kEnding)) return nullptr;
    name.remove_suffix(kEnding.size());
    return m_entries->find(name);
}

}  // namespace velmora
