#pragma once

#include "platform/VolumeSource.h"
#include "platform/linux/disk/DeviceNumber.h"
#include "platform/linux/disk/DiskTopology.h"
#include "platform/linux/disk/LinuxMountTable.h"
#include "platform/linux/disk/SlowVolumeSpaces.h"
#include "platform/linux/disk/VolumeSpace.h"
#include "platform/linux/files/SystemRoot.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// The mounted volumes with their names, sizes and kinds.
///
/// What does not change while a volume is mounted is found out when mounts come or go, and now and then since
/// a label may be written anew; space is asked each time, and that of network mounts, of file systems in user
/// space and of what is mounted below either on other threads.
class LinuxVolumes final : public VolumeSource {
public:
    /// The questions that the kernel answers by itself rather than in a file.
    struct Calls {
        SlowVolumeSpaces::Ask space = volumeSpace;
        SlowVolumeSpaces::StartThread startThread = SlowVolumeSpaces::startDetachedThread;
        /// The number of the block device that a path below /dev leads to; nothing for anything else.
        std::function<std::optional<DeviceNumber>(const std::string& path)> blockDevice = blockDeviceAt;
    };

    explicit LinuxVolumes(SystemRoot root = SystemRoot());
    LinuxVolumes(SystemRoot root, Calls calls);

    std::vector<std::string> mountedVolumes() override;
    std::optional<VolumeValues> values(const std::string& path) override;
    /// "/dev/" and the name of the whole disk as the disks' counters name it; for a volume without a disk
    /// what the mount table says, or the file system's type.
    std::optional<std::string> mountSource(const std::string& path) override;

    static std::optional<DeviceNumber> blockDeviceAt(const std::string& path);

private:
    struct Volume {
        std::string path;        ///< Valid UTF-8, as handed out.
        std::string mountPoint;  ///< Bytes, as the kernel takes them.
        std::optional<std::string> name;
        std::string source;
        bool isSlow = false;
        bool isNetwork = false;
        bool isInternal = false;
        bool isRemovable = false;
        bool isEjectable = false;
    };

    void lookUp();
    Volume describe(const MountEntry& entry) const;
    std::optional<DeviceNumber> deviceOf(const MountEntry& entry) const;
    std::optional<std::string> nameOf(const MountEntry& entry, std::optional<DeviceNumber> device) const;
    const Volume* volumeAt(const std::string& path) const;

    SystemRoot m_root;
    Calls m_calls;
    LinuxMountTable m_mounts;
    DiskTopology m_topology;
    SlowVolumeSpaces m_slowSpaces;
    std::vector<Volume> m_volumes;
    std::vector<SlowVolumeSpaces::Mount> m_slowMounts;
    int m_callsSinceLookUp = 0;
};

}  // namespace velmora
