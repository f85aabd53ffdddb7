#pragma once

#include "platform/ProcessCounterSource.h"
#include "platform/linux/power/PackageEnergy.h"
#include "platform/linux/processes/ProcPidIo.h"
#include "platform/linux/processes/ProcessTable.h"

#include <unordered_map>

namespace velmora {

/// Storage traffic from /proc/N/io, which only a process's own user may read, and energy by shares of
/// processor time where the packages' counters are readable.
///
/// A process takes over the counters of each child that it has waited for: a shell jumps by all that a build
/// wrote when the build ends, which was shown once already while it ran. So whatever such a process's
/// counters rose by in that interval is left out for good. That a child was waited for shows in the page
/// faults and times of children, which the kernel adds in the same step.
class LinuxProcessCounterSource final : public ProcessCounterSource {
public:
    explicit LinuxProcessCounterSource(const SystemRoot& root);

    /// Walks over all processes; gives bytes, see `ProcessTable::fillInBytes`.
    std::int32_t listAll(std::span<std::int32_t> buffer) override;
    std::optional<ProcessCounters> counters(std::int32_t pid) override;
    std::string name(std::int32_t pid) override;
    std::optional<std::uint64_t> ownEnergy() override;

private:
    struct State {
        std::uint64_t startTicks = 0;
        std::uint64_t cpuTicks = 0;
        double nanojoules = 0;
        bool hasIo = false;
        std::uint64_t childTicks = 0;
        std::uint64_t childFaults = 0;
        ProcPidIo last;      ///< As read.
        ProcPidIo absorbed;  ///< What came from children, taken off.
        std::uint32_t walk = 0;
    };
    struct Reading {
        ProcPidIo io;
        std::uint64_t childTicks = 0;
        std::uint64_t childFaults = 0;
    };
    void shareEnergy();
    std::optional<Reading> readIo(std::int32_t pid, std::uint64_t startTicks);

    ProcessTable m_table;
    PackageEnergy m_energy;
    const bool m_hasEnergy;
    const std::uint32_t m_user;
    std::uint32_t m_walk = 0;
    std::unordered_map<std::int32_t, State> m_states;
};

}  // namespace velmora
