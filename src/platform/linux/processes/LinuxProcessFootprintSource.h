#pragma once

#include "platform/ProcessFootprintSource.h"
#include "platform/linux/processes/ProcPidStatus.h"
#include "platform/linux/processes/ProcessFolder.h"

#include <vector>

namespace velmora {

/// Memory that a process would have to itself: its anonymous pages in memory (`RssAnon`) and in swap
/// (`VmSwap`) of /proc/N/status, which is readable for the processes of all users. Kernel threads have
/// neither.
class LinuxProcessFootprintSource final : public ProcessFootprintSource {
public:
    explicit LinuxProcessFootprintSource(const SystemRoot& root);

    std::int32_t listAll(std::span<std::int32_t> buffer) override;
    std::optional<std::uint64_t> footprint(std::int32_t pid) override;
    std::string name(std::int32_t pid) override;

private:
    bool readStatus(std::int32_t pid);

    ProcessFolder m_folder;
    const std::uint32_t m_user;
    std::vector<std::int32_t> m_pids;  ///< Of a call without a buffer, until one with a buffer takes them.
    ProcPidStatus m_status;
    std::int32_t m_statusPid = 0;  ///< Whose status was read last; 0 for none.
};

}  // namespace velmora
