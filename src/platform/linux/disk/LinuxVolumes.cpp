#include "platform/linux/disk/LinuxVolumes.h"

#include "base/Utf8Text.h"
#include "platform/linux/disk/LinuxBlockDevices.h"
#include "platform/linux/disk/MountFilter.h"
#include "platform/linux/disk/VolumeLabel.h"
#include "platform/linux/files/SystemFile.h"

#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <string_view>
#include <utility>

namespace velmora {
namespace {

constexpr std::string_view kRootPath = "/";
constexpr std::string_view kDevices = "/dev/";

}  // namespace

LinuxVolumes::LinuxVolumes(SystemRoot root) : LinuxVolumes(std::move(root), Calls()) {}

LinuxVolumes::LinuxVolumes(SystemRoot root, Calls calls)
    : m_root(std::move(root)),
      m_calls(std::move(calls)),
      m_mounts(m_root),
      m_topology(m_root),
      m_slowSpaces(m_calls.space, m_calls.startThread) {}

std::vector<std::string> LinuxVolumes::mountedVolumes() {
    // At the rate at which volumes are asked for, once a minute.
    constexpr int kCallsPerLookUp = 6;
    if (m_mounts.hasChanged() || ++m_callsSinceLookUp >= kCallsPerLookUp) lookUp();
    m_slowSpaces.refresh(m_slowMounts);
    std::vector<std::string> paths;
    paths.reserve(m_volumes.size());
    for (const Volume& volume : m_volumes) paths.push_back(volume.path);
    return paths;
}

std::optional<VolumeValues> LinuxVolumes::values(const std::string& path) {
    const auto volume = std::ranges::find(m_volumes, path, &Volume::path);
    if (volume == m_volumes.end()) return std::nullopt;
    const auto space =
        volume->isSlow ? m_slowSpaces.spaceOf(volume->mountPoint) : m_calls.space(volume->mountPoint);
    if (!space) return std::nullopt;
    return VolumeValues{.name = volume->name,
                        .totalCapacity = space->total,
                        .availableCapacity = space->available,
                        .isInternal = volume->isInternal,
                        .isBrowsable = true,
                        .isLocal = !volume->isNetwork,
                        .isRemovable = volume->isRemovable,
                        .isEjectable = volume->isEjectable};
}

std::optional<std::string> LinuxVolumes::mountSource(const std::string& path) {
    const Volume* const volume = volumeAt(path);
    if (!volume) return std::nullopt;
    return volume->source;
}

std::optional<DeviceNumber> LinuxVolumes::blockDeviceAt(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0 || !S_ISBLK(status.st_mode)) return std::nullopt;
    return DeviceNumber{::major(status.st_rdev), ::minor(status.st_rdev)};
}

void LinuxVolumes::lookUp() {
    m_callsSinceLookUp = 0;
    m_volumes.clear();
    m_slowMounts.clear();
    for (const MountEntry& entry : m_mounts.read()) {
        Volume volume = describe(entry);
        if (volume.isSlow) m_slowMounts.push_back({volume.mountPoint, entry.device});
        m_volumes.push_back(std::move(volume));
    }
}

LinuxVolumes::Volume LinuxVolumes::describe(const MountEntry& entry) const {
    Volume volume;
    volume.path = validUtf8(entry.mountPoint);
    volume.mountPoint = entry.mountPoint;
    volume.isNetwork = entry.needsNetwork || MountFilter::isNetworkType(entry.type);
    volume.isSlow = volume.isNetwork || entry.isBehindSlowMount || MountFilter::isUserSpaceType(entry.type);
    const auto device = volume.isNetwork ? std::nullopt : deviceOf(entry);
    volume.name = nameOf(entry, device);
    // A source of this form would be taken for the name of a disk.
    volume.source = entry.source.starts_with(kDevices) ? entry.type : entry.source;
    const auto origin = device ? m_topology.originOf(*device) : std::nullopt;
    if (!origin) return volume;
    volume.source = std::string(kDevices) + bsdNameOfDisk(origin->name);
    volume.isRemovable = origin->isRemovable;
    volume.isEjectable = origin->isEjectable;
    volume.isInternal = origin->isHardware && !origin->isRemovable && !origin->isEjectable;
    return volume;
}

std::optional<DeviceNumber> LinuxVolumes::deviceOf(const MountEntry& entry) const {
    if (entry.device.major != 0) return entry.device;
    // A file system that may span disks has a number of its own, but still names one of them.
    if (!entry.source.starts_with(kDevices)) return std::nullopt;
    return m_calls.blockDevice(m_root.path(std::string_view(entry.source).substr(1)));
}

std::optional<std::string> LinuxVolumes::nameOf(const MountEntry& entry,
                                                std::optional<DeviceNumber> device) const {
    if (device) {
        const auto record = readSystemFile(m_root.path("run/udev/data/b" + device->text()));
        if (auto label = record ? parseVolumeLabel(*record) : std::nullopt) return label;
    }
    if (entry.mountPoint != kRootPath) return std::nullopt;
    for (const std::string_view file : {"etc/os-release", "usr/lib/os-release"}) {
        const auto text = readSystemFile(m_root.path(file));
        if (auto name = text ? parseSystemName(*text) : std::nullopt) return name;
    }
    return std::nullopt;
}

const LinuxVolumes::Volume* LinuxVolumes::volumeAt(const std::string& path) const {
    const Volume* deepest = nullptr;
    for (const Volume& volume : m_volumes) {
        const bool holds = MountFilter::isAtOrBelow(path, volume.path);
        if (holds && (!deepest || volume.path.size() > deepest->path.size())) deepest = &volume;
    }
    return deepest;
}

}  // namespace velmora
