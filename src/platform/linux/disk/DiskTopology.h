#pragma once

#include "platform/linux/disk/DeviceNumber.h"
#include "platform/linux/files/SystemRoot.h"

#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// What a block device is made of in the end.
struct DiskOrigin {
    /// The kernel's name of the whole disk; for a device that joins several disks, its own name.
    std::string name;
    bool isHardware = false;   ///< All of it lies on disks, not on image files, memory or a network.
    bool isRemovable = false;  ///< A disk among them has a medium that can be taken out.
    bool isEjectable = false;  ///< A disk among them can itself be taken off.
    friend bool operator==(const DiskOrigin&, const DiskOrigin&) = default;
};

/// Follows a block device down to its disks, in sysfs: a partition has its disk as the folder above, and a
/// layer (encryption, RAID, logical volumes, a cache) names what it stands on in `slaves`. Names of devices
/// are never taken apart, since they say nothing of this.
class DiskTopology {
public:
    explicit DiskTopology(SystemRoot root);

    /// Nothing for a device that sysfs does not know.
    std::optional<DiskOrigin> originOf(DeviceNumber device) const;

private:
    SystemRoot m_root;
};

}  // namespace velmora
