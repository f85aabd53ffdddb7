#include "core/DiskVolumeMapping.h"

namespace velmora {
namespace {

constexpr std::string_view kDisk = "disk";
constexpr std::string_view kDigits = "0123456789";

/// The volume that stands for the disk; null if the disk has none. Both are few, so a walk is cheap and needs
/// no storage.
DiskVolume* volumeOf(std::string_view disk, std::span<DiskVolume> volumes) {
    DiskVolume* found = nullptr;
    for (DiskVolume& volume : volumes) {
        if (!volume.bsd || wholeDiskName(*volume.bsd) != disk) continue;
        if (found == nullptr || volume.path == "/") found = &volume;
    }
    return found;
}

}  // namespace

std::string_view wholeDiskName(std::string_view device) {
    if (!device.starts_with(kDisk)) return device;
    return device.substr(0, device.find_first_not_of(kDigits, kDisk.size()));
}

void mapThroughput(const std::map<std::string, VolumeIORates>& rates, std::span<DiskVolume> volumes) {
    for (DiskVolume& volume : volumes) {
        volume.readPerSec = 0;
        volume.writePerSec = 0;
    }
    for (const auto& [device, rate] : rates) {
        DiskVolume* volume = volumeOf(wholeDiskName(device), volumes);
        if (volume == nullptr) continue;
        volume->readPerSec += rate.readPerSec;
        volume->writePerSec += rate.writePerSec;
    }
}

}  // namespace velmora
