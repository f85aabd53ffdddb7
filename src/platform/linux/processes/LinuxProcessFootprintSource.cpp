#include "platform/linux/processes/LinuxProcessFootprintSource.h"

#include "platform/linux/processes/ProcessNames.h"
#include "platform/linux/processes/ProcessTable.h"

#include <unistd.h>

#include <algorithm>

namespace velmora {

LinuxProcessFootprintSource::LinuxProcessFootprintSource(const SystemRoot& root)
    : m_folder(root), m_user(::geteuid()) {}

std::int32_t LinuxProcessFootprintSource::listAll(std::span<std::int32_t> buffer) {
    if (buffer.empty() || m_pids.empty()) {
        if (!m_folder.list(m_pids)) return -1;
    }
    if (buffer.empty()) return static_cast<std::int32_t>(m_pids.size());
    const std::size_t count = std::min(buffer.size(), m_pids.size());
    std::copy_n(m_pids.begin(), count, buffer.begin());
    m_pids.clear();
    return static_cast<std::int32_t>(count);
}

bool LinuxProcessFootprintSource::readStatus(std::int32_t pid) {
    m_statusPid = 0;
    const auto text = m_folder.read(pid, "status");
    if (!text || !parseProcPidStatus(*text, m_status)) return false;
    m_statusPid = pid;
    return true;
}

std::optional<std::uint64_t> LinuxProcessFootprintSource::footprint(std::int32_t pid) {
    if (!readStatus(pid)) return std::nullopt;
    return m_status.anonymousBytes.value_or(0) + m_status.swappedBytes.value_or(0);
}

std::string LinuxProcessFootprintSource::name(std::int32_t pid) {
    // The walk asks for the name right after the footprint.
    if (m_statusPid != pid && !readStatus(pid)) return {};
    if (m_status.user == m_user) return ProcessTable::programName(m_folder, pid, m_status.name);
    return ProcessTable::commandName(m_folder, pid, m_status.name);
}

}  // namespace velmora
