#include "platform/linux/disk/DiskTopology.h"

#include "platform/linux/files/SystemFile.h"

#include <limits.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <set>
#include <string_view>
#include <utility>

namespace velmora {
namespace {

bool exists(const std::string& path) {
    return ::access(path.c_str(), F_OK) == 0;
}

/// Empty if the path leads nowhere.
std::string realPath(const std::string& path) {
    std::array<char, PATH_MAX> resolved{};
    return ::realpath(path.c_str(), resolved.data()) ? resolved.data() : "";
}

std::string folderAbove(const std::string& path) {
    return path.substr(0, path.rfind('/'));
}

std::string nameOf(const std::string& devicePath) {
    std::string name = devicePath.substr(devicePath.rfind('/') + 1);
    // A file name has no slash, so the kernel writes another letter there.
    std::ranges::replace(name, '!', '/');
    return name;
}

/// The device, or the disk that it is a partition of.
std::string wholeDevice(const std::string& devicePath) {
    return exists(devicePath + "/partition") ? folderAbove(devicePath) : devicePath;
}

/// Adds the devices at the bottom, by path. `visited` ends circles, and its size the work on any tree.
void addBottom(const std::string& devicePath, std::set<std::string>& visited, std::set<std::string>& bottom) {
    constexpr std::size_t kMostDevices = 256;
    const std::string whole = wholeDevice(devicePath);
    if (visited.size() >= kMostDevices || !visited.insert(whole).second) return;
    const std::string folder = whole + "/slaves/";
    const std::vector<std::string> slaves = systemFolderEntries(folder);
    if (slaves.empty()) bottom.insert(whole);
    for (const std::string& slave : slaves) {
        const std::string path = realPath(folder + slave);
        if (!path.empty()) addBottom(path, visited, bottom);
    }
}

/// True if a device on the way up to the root of the device tree is marked as one that can be taken off, as a
/// disk on an outside port is.
bool hangsOnOutsidePort(std::string path) {
    while (path.rfind("/devices/") != std::string::npos) {
        if (readSystemWord(path + "/removable") == "removable") return true;
        path = folderAbove(path);
    }
    return false;
}

/// A disk with several ways to it lies below none of them in the tree, but its `device` lists them.
bool controllerHangsOnOutsidePort(const std::string& subsystem) {
    return std::ranges::any_of(systemFolderEntries(subsystem), [&](const std::string& name) {
        if (!name.starts_with("nvme") || !isDigits(std::string_view(name).substr(4))) return false;
        return hangsOnOutsidePort(realPath(subsystem + "/" + name));
    });
}

bool isEjectable(const std::string& disk) {
    // The root of a captured tree may have any name, so that only the part inside counts.
    const std::string_view inTree =
        std::string_view(disk).substr(std::min(disk.find("/devices/"), disk.size()));
    const auto lies = [inTree](std::string_view bus) { return inTree.find(bus) != std::string_view::npos; };
    if (lies("/usb") || lies("/ieee1394")) return true;
    if (lies("/mmc")) return readSystemWord(disk + "/device/type") == "SD";
    const std::string device = realPath(disk + "/device");
    return hangsOnOutsidePort(disk) || (!device.empty() && controllerHangsOnOutsidePort(device));
}

}  // namespace

DiskTopology::DiskTopology(SystemRoot root) : m_root(std::move(root)) {}

std::optional<DiskOrigin> DiskTopology::originOf(DeviceNumber device) const {
    const std::string path = realPath(m_root.path("sys/dev/block/" + device.text()));
    if (path.empty()) return std::nullopt;
    std::set<std::string> visited;
    std::set<std::string> disks;
    addBottom(path, visited, disks);
    if (disks.empty()) return std::nullopt;

    DiskOrigin origin;
    origin.name = nameOf(disks.size() == 1 ? *disks.begin() : wholeDevice(path));
    origin.isHardware =
        std::ranges::all_of(disks, [](const std::string& disk) { return exists(disk + "/device"); });
    for (const std::string& disk : disks) {
        origin.isRemovable = origin.isRemovable || readSystemNumber(disk + "/removable") == 1u;
        origin.isEjectable = origin.isEjectable || isEjectable(disk);
    }
    return origin;
}

}  // namespace velmora
