#include "platform/linux/processes/LinuxProcessCounterSource.h"

#include "platform/linux/processes/ProcPidStat.h"

#include <unistd.h>

namespace velmora {
namespace {

/// Only differences count. A process begins with one nanojoule, as a counter of 0 stands for "not known".
constexpr double kFirstNanojoules = 1;

}  // namespace

LinuxProcessCounterSource::LinuxProcessCounterSource(const SystemRoot& root)
    : m_table(root), m_energy(root), m_hasEnergy(m_energy.isReadable()), m_user(::geteuid()) {}

std::int32_t LinuxProcessCounterSource::listAll(std::span<std::int32_t> buffer) {
    if (!m_table.walk()) return -1;
    ++m_walk;
    shareEnergy();
    std::erase_if(m_states, [this](const auto& entry) { return entry.second.walk != m_walk; });
    return m_table.fillInBytes(buffer, m_user);
}

void LinuxProcessCounterSource::shareEnergy() {
    const double nanojoules = m_hasEnergy ? m_energy.takeNanojoules() : 0;
    const auto ticksSinceLastWalk = [this](const ProcessTable::Row& row) {
        const auto known = m_states.find(row.pid);
        if (known == m_states.end() || known->second.startTicks != row.startTicks)
            return m_walk == 1 ? 0 : row.cpuTicks;
        return row.cpuTicks > known->second.cpuTicks ? row.cpuTicks - known->second.cpuTicks : 0;
    };
    double allTicks = 0;
    for (const auto& row : m_table.rows()) allTicks += static_cast<double>(ticksSinceLastWalk(row));
    for (const auto& row : m_table.rows()) {
        const auto ticks = static_cast<double>(ticksSinceLastWalk(row));
        State& state = m_states[row.pid];
        if (state.startTicks != row.startTicks || state.walk == 0) {
            state = State{};
            state.startTicks = row.startTicks;
            state.nanojoules = kFirstNanojoules;
        }
        state.cpuTicks = row.cpuTicks;
        if (allTicks > 0) state.nanojoules += nanojoules * ticks / allTicks;
        state.walk = m_walk;
    }
}

std::optional<LinuxProcessCounterSource::Reading> LinuxProcessCounterSource::readIo(
    std::int32_t pid, std::uint64_t startTicks) {
    // A child may be waited for between the two files, so their order tells nothing unless the second reading
    // of the first one agrees.
    const auto childrenOf = [&]() -> std::optional<Reading> {
        const auto text = m_table.folder().read(pid, "stat");
        const auto stat = text ? parseProcPidStat(*text) : std::nullopt;
        if (!stat || stat->startTicks != startTicks) return std::nullopt;
        return Reading{{}, stat->childTicks, stat->childFaults};
    };
    constexpr int kTries = 4;
    const auto* const row = m_table.find(pid);
    std::optional<Reading> before;
    if (row != nullptr) before = Reading{{}, row->childTicks, row->childFaults};
    for (int attempt = 0; before && attempt < kTries; ++attempt) {
        const auto text = m_table.folder().read(pid, "io");
        const auto io = text ? parseProcPidIo(*text) : std::nullopt;
        if (!io) return std::nullopt;
        auto after = childrenOf();
        if (!after) return std::nullopt;
        after->io = *io;
        if (after->childTicks == before->childTicks && after->childFaults == before->childFaults)
            return after;
        before = after;
    }
    return before;
}

std::optional<ProcessCounters> LinuxProcessCounterSource::counters(std::int32_t pid) {
    const auto known = m_states.find(pid);
    if (known == m_states.end()) return std::nullopt;
    State& state = known->second;
    const auto reading = readIo(pid, state.startTicks);
    if (!reading) return std::nullopt;

    const bool hasNewChildren =
        state.childTicks != reading->childTicks || state.childFaults != reading->childFaults;
    if (state.hasIo && hasNewChildren) {
        state.absorbed.readBytes += reading->io.readBytes - state.last.readBytes;
        state.absorbed.writeBytes += reading->io.writeBytes - state.last.writeBytes;
    }
    state.hasIo = true;
    state.childTicks = reading->childTicks;
    state.childFaults = reading->childFaults;
    state.last = reading->io;

    ProcessCounters counters;
    counters.diskRead = state.last.readBytes - state.absorbed.readBytes;
    counters.diskWritten = state.last.writeBytes - state.absorbed.writeBytes;
    if (m_hasEnergy) counters.billedEnergy = static_cast<std::uint64_t>(state.nanojoules);
    return counters;
}

std::string LinuxProcessCounterSource::name(std::int32_t pid) {
    const auto* const row = m_table.find(pid);
    if (row == nullptr) return {};
    return row->owner == m_user ? ProcessTable::programName(m_table.folder(), pid, m_table.comm(*row))
                                : ProcessTable::commandName(m_table.folder(), pid, m_table.comm(*row));
}

std::optional<std::uint64_t> LinuxProcessCounterSource::ownEnergy() {
    return m_hasEnergy ? static_cast<std::uint64_t>(kFirstNanojoules) : 0;
}

}  // namespace velmora
