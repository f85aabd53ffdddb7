#pragma once

#include "platform/linux/disk/MountInfo.h"
#include "platform/linux/files/FileDescriptor.h"
#include "platform/linux/files/RecordFile.h"

#include <string>
#include <vector>

namespace velmora {

class SystemRoot;

/// The volumes among the mounts of /proc/self/mountinfo. The kernel marks the open file at each mount and
/// unmount, so that asking whether anything has changed costs next to nothing.
class LinuxMountTable {
public:
    explicit LinuxMountTable(const SystemRoot& root);

    /// True if mounts have come or gone since the last call; also where the kernel does not tell.
    bool hasChanged();
    /// Reads the mounts to list, and the hints of fstab and utab with them. Empty on failure.
    std::vector<MountEntry> read();

private:
    RecordFile m_file;
    FileDescriptor m_marked;  ///< The kernel keeps the mark by open file, and a look takes it away.
    std::string m_fstab;
    std::string m_utab;
    bool m_isFirst = true;
};

}  // namespace velmora
