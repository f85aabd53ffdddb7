#include "platform/linux/traffic/LinuxOrphanSource.h"

#include "base/FormatText.h"
#include "platform/linux/files/SystemFile.h"
#include "platform/linux/traffic/ParentMark.h"

#include <signal.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstddef>

namespace velmora {
namespace {

constexpr std::int32_t kFirstProcess = 1;
/// The kernel allows an environment of 6 MiB.
constexpr std::size_t kLongestEnvironment = std::size_t{6} << 20;

}  // namespace

LinuxOrphanSource::LinuxOrphanSource(const SystemRoot& root) : m_root(root), m_table(root) {}

std::int32_t LinuxOrphanSource::listAll(std::span<std::int32_t> buffer) {
    return m_table.walk() ? m_table.fillInBytes(buffer, userId()) : -1;
}

std::string LinuxOrphanSource::name(std::int32_t pid) {
    const auto* const row = m_table.find(pid);
    return row ? std::string(m_table.comm(*row)) : std::string();
}

std::optional<ProcessParentage> LinuxOrphanSource::parentage(std::int32_t pid) {
    m_held.reset();
    m_heldPid = 0;
    const auto* const row = m_table.find(pid);
    if (row == nullptr) return std::nullopt;
    if (m_root.isRunningSystem()) {
        m_held = FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, pid, 0)));
        if (!m_held) return std::nullopt;
        m_heldPid = pid;
        // The hold is on whoever has the number now; it must be the process of the walk.
        const auto now = ParentMark::ofProcess(m_root, pid);
        if (!now || now->startTicks != row->startTicks) return std::nullopt;
    }
    ProcessParentage parentage{row->parent, m_table.folder().owner(pid).value_or(row->owner)};
    if (parentage.user != userId()) return parentage;
    const auto environment =
        readSystemFile(m_root.path(formatText("proc/%d/environ", {pid})), kLongestEnvironment);
    const auto mark = environment ? ParentMark::inEnvironment(*environment) : std::nullopt;
    if (!mark || !countsLikeThisProcess(pid)) return std::nullopt;
    if (!mark->isAlive(m_root)) {
        parentage.parent = kFirstProcess;
    } else if (parentage.parent == kFirstProcess) {
        // Adopted, but its launcher lives: it is not for us to end.
        parentage.parent = mark->pid;
    }
    return parentage;
}

bool LinuxOrphanSource::countsLikeThisProcess(std::int32_t pid) const {
    return systemLinkName(m_root.path(formatText("proc/%d/ns/pid", {pid}))) ==
           systemLinkName(m_root.path("proc/self/ns/pid"));
}

std::uint32_t LinuxOrphanSource::userId() const {
    return ::getuid();
}

void LinuxOrphanSource::terminate(std::int32_t pid) {
    if (pid != m_heldPid || !m_held) return;
    ::syscall(SYS_pidfd_send_signal, m_held.get(), SIGTERM, nullptr, 0);
}

}  // namespace velmora
