#pragma once

#include "platform/BlockDeviceSource.h"
#include "platform/linux/files/RecordFile.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

class SystemRoot;

/// The form in which a disk's name is handed out. Names such as "vda" and "nvme0n1" have no letter "s", which
/// who reads the figures asks of a name, and must not begin with "disk", whose digits stand for a container.
std::string bsdNameOfDisk(const std::string& kernelName);

/// Disks by /proc/diskstats, whose lines count the same bytes again for every layer: partition, encryption,
/// RAID, image file. The drivers' figures are those of the lowest layer alone, the devices that /sys/block
/// gives a `device` link. The named media are these, and the layers that may join several of them.
///
/// What a line stands for is looked up once; the names of the lines tell when to look again.
class LinuxBlockDevices final : public BlockDeviceSource {
public:
    explicit LinuxBlockDevices(const SystemRoot& root);

    bool drivers(std::vector<BlockDriverCounters>& drivers) override;
    /// There are no volumes with figures of their own.
    bool media(MediaClass mediaClass, std::vector<MediaCounters>& media) override;

private:
    enum class Role {
        none,  ///< A partition, an image, memory, or another thing whose bytes count elsewhere.
        disk,
        layer,  ///< Built on other devices: RAID, encryption, logical volumes.
        path,   ///< One of the ways to a disk that has several; hidden from users.
    };
    struct Device {
        std::string kernelName;
        std::string bsdName;
        Role role = Role::none;
        std::optional<std::size_t> head;  ///< For a path, the position of its disk.
        BlockDriverCounters counters;
    };

    bool read();
    /// False if the lines are not those of the known devices.
    bool takeCounters(std::string_view text);
    void lookUp(std::string_view text);
    Role roleOf(const std::string& kernelName) const;
    void fillSilentHeads();

    std::string m_blockFolder;
    RecordFile m_file;
    std::vector<Device> m_devices;  ///< One per line, in the order of the file.
    bool m_isUnused = false;        ///< The counters have served the drivers and not yet the media.
};

}  // namespace velmora
