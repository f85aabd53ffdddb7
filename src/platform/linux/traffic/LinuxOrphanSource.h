#pragma once

#include "platform/OrphanSource.h"
#include "platform/linux/files/FileDescriptor.h"
#include "platform/linux/files/SystemRoot.h"
#include "platform/linux/processes/ProcessTable.h"

namespace velmora {

/// Finds tools that this program left behind. A process counts as an orphan, with 1 as its parent, if the
/// process that its environment names as its launcher is gone; without that mark it is none of ours, and
/// nothing is told of its parent. Nor is anything told of a process inside a container, whose mark counts
/// processes by the container's own numbers. The environment can be read of this user's processes alone; of
/// others the parent is the one that the kernel names.
class LinuxOrphanSource final : public OrphanSource {
public:
    explicit LinuxOrphanSource(const SystemRoot& root);

    /// Walks over all processes; gives bytes, see `ProcessTable::fillInBytes`.
    std::int32_t listAll(std::span<std::int32_t> buffer) override;
    std::string name(std::int32_t pid) override;
    std::optional<ProcessParentage> parentage(std::int32_t pid) override;
    std::uint32_t userId() const override;
    void terminate(std::int32_t pid) override;

private:
    /// Whether process numbers mean the same to both.
    bool countsLikeThisProcess(std::int32_t pid) const;

    SystemRoot m_root;
    ProcessTable m_table;
    FileDescriptor m_held;  ///< A hold on the process that `parentage` was asked of.
    std::int32_t m_heldPid = 0;
};

}  // namespace velmora
