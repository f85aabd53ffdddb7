#include "platform/linux/processes/ProcessTable.h"

#include "platform/linux/processes/ProcPidStat.h"
#include "platform/linux/processes/ProcessNames.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace velmora {
namespace {

/// The comm may point into the folder's buffer, which the next read overwrites.
std::string uncutName(ProcessFolder& folder, std::int32_t pid, const std::string& comm,
                      const std::string& executable) {
    if (!ProcessNames::mayBeCut(comm)) return ProcessNames::shown(comm);
    std::string_view firstArgument;
    if (!ProcessNames::lastComponent(executable).starts_with(comm)) {
        firstArgument = folder.read(pid, "cmdline").value_or("");
        firstArgument = firstArgument.substr(0, firstArgument.find('\0'));
    }
    return ProcessNames::shown(ProcessNames::uncut(comm, executable, firstArgument));
}

}  // namespace

bool ProcessTable::walk() {
    m_rows.clear();
    m_comms.clear();
    if (!m_folder.list(m_pids)) return false;
    for (const std::int32_t pid : m_pids) {
        const auto text = m_folder.read(pid, "stat");
        const auto stat = text ? parseProcPidStat(*text) : std::nullopt;
        const auto owner = stat ? m_folder.ownerOfLastRead() : std::nullopt;
        if (!owner) continue;
        Row row;
        row.pid = pid;
        row.parent = stat->parent;
        row.owner = *owner;
        row.isKernelThread = stat->isKernelThread();
        row.startTicks = stat->startTicks;
        row.cpuTicks = stat->cpuTicks;
        row.childTicks = stat->childTicks;
        row.childFaults = stat->childFaults;
        row.residentPages = stat->residentPages;
        row.commOffset = static_cast<std::uint32_t>(m_comms.size());
        row.commLength = static_cast<std::uint32_t>(stat->comm.size());
        m_comms.append(stat->comm);
        m_rows.push_back(row);
    }
    return true;
}

const ProcessTable::Row* ProcessTable::find(std::int32_t pid) const {
    const auto found = std::ranges::lower_bound(m_rows, pid, {}, &Row::pid);
    return found != m_rows.end() && found->pid == pid ? &*found : nullptr;
}

std::int32_t ProcessTable::fillInBytes(std::span<std::int32_t> buffer, std::uint32_t user) {
    m_order.resize(m_rows.size());
    std::iota(m_order.begin(), m_order.end(), 0U);
    const auto keyOf = [&](std::uint32_t index) {
        const Row& row = m_rows[index];
        const int group = row.isKernelThread ? 2 : row.owner == user ? 0 : 1;
        return std::tuple(group, ~row.startTicks, ~static_cast<std::uint32_t>(row.pid));
    };
    std::ranges::sort(m_order, {}, keyOf);
    const std::size_t count = std::min(m_order.size(), buffer.size());
    for (std::size_t index = 0; index < count; ++index) buffer[index] = m_rows[m_order[index]].pid;
    return static_cast<std::int32_t>(count * sizeof(std::int32_t));
}

std::string ProcessTable::programName(ProcessFolder& folder, std::int32_t pid, std::string_view comm) {
    const std::string kept(comm);
    const std::string executable = folder.executable(pid);
    const std::string_view program = ProcessNames::ofProgram(executable);
    return program.empty() ? uncutName(folder, pid, kept, executable) : ProcessNames::shown(program);
}

std::string ProcessTable::commandName(ProcessFolder& folder, std::int32_t pid, std::string_view comm) {
    const std::string kept(comm);
    if (!ProcessNames::mayBeCut(kept)) return ProcessNames::shown(kept);
    return uncutName(folder, pid, kept, folder.executable(pid));
}

}  // namespace velmora
