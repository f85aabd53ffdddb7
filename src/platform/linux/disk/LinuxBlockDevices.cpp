#include "platform/linux/disk/LinuxBlockDevices.h"

#include "platform/linux/disk/ProcDiskStats.h"
#include "platform/linux/files/SystemFile.h"
#include "platform/linux/files/SystemRoot.h"

#include <unistd.h>

#include <algorithm>
#include <string_view>
#include <utility>

namespace velmora {
namespace {

bool exists(const std::string& path) {
    return ::access(path.c_str(), F_OK) == 0;
}

BlockDriverCounters countersOf(const ProcDiskStats::Line& line) {
    return {.readBytes = line.sectorsRead * ProcDiskStats::kSectorBytes,
            .writeBytes = line.sectorsWritten * ProcDiskStats::kSectorBytes,
            .readOperations = line.reads,
            .writeOperations = line.writes};
}

void add(BlockDriverCounters& sum, const BlockDriverCounters& counters) {
    sum.readBytes += counters.readBytes;
    sum.writeBytes += counters.writeBytes;
    sum.readOperations += counters.readOperations;
    sum.writeOperations += counters.writeOperations;
}

/// "nvme2c0n1" is path 0 to "nvme2n1". Nothing for any other name.
std::optional<std::string> headOfPath(std::string_view name) {
    constexpr std::string_view kPrefix = "nvme";
    if (!name.starts_with(kPrefix)) return std::nullopt;
    const auto controller = name.find('c', kPrefix.size());
    if (controller == std::string_view::npos) return std::nullopt;
    const auto space = name.find('n', controller);
    if (space == std::string_view::npos) return std::nullopt;
    const bool isPath = isDigits(name.substr(kPrefix.size(), controller - kPrefix.size())) &&
                        isDigits(name.substr(controller + 1, space - controller - 1)) &&
                        isDigits(name.substr(space + 1));
    if (!isPath) return std::nullopt;
    std::string head(name.substr(0, controller));
    head += name.substr(space);
    return head;
}

}  // namespace

std::string bsdNameOfDisk(const std::string& kernelName) {
    std::string name = "dsk-";
    name += kernelName;
    return name;
}

LinuxBlockDevices::LinuxBlockDevices(const SystemRoot& root)
    : m_blockFolder(root.path("sys/block/")),
      m_file(root.path("proc/diskstats"), ProcDiskStats::kLongestLine) {}

bool LinuxBlockDevices::drivers(std::vector<BlockDriverCounters>& drivers) {
    m_isUnused = read();
    if (!m_isUnused) return false;
    drivers.clear();
    for (const Device& device : m_devices) {
        if (device.role == Role::disk) drivers.push_back(device.counters);
    }
    return true;
}

bool LinuxBlockDevices::media(MediaClass mediaClass, std::vector<MediaCounters>& media) {
    if (mediaClass == MediaClass::apfsVolume) {
        media.clear();
        return true;
    }
    if (!std::exchange(m_isUnused, false) && !read()) return false;
    std::size_t count = 0;
    for (const Device& device : m_devices) {
        if (device.role != Role::disk && device.role != Role::layer) continue;
        if (count == media.size()) media.emplace_back();
        MediaCounters& entry = media[count++];
        entry.bsdName = device.bsdName;
        entry.readBytes = device.counters.readBytes;
        entry.writeBytes = device.counters.writeBytes;
    }
    media.resize(count);
    return true;
}

bool LinuxBlockDevices::read() {
    const auto text = m_file.read();
    if (!text) return false;
    if (!takeCounters(*text)) {
        lookUp(*text);
        takeCounters(*text);
    }
    fillSilentHeads();
    return true;
}

bool LinuxBlockDevices::takeCounters(std::string_view text) {
    std::size_t position = 0;
    while (const auto line = ProcDiskStats::takeLine(text)) {
        if (position == m_devices.size() || m_devices[position].kernelName != line->name) return false;
        m_devices[position++].counters = countersOf(*line);
    }
    return position == m_devices.size();
}

void LinuxBlockDevices::lookUp(std::string_view text) {
    m_devices.clear();
    while (const auto line = ProcDiskStats::takeLine(text)) {
        Device device;
        device.kernelName = line->name;
        device.bsdName = bsdNameOfDisk(device.kernelName);
        device.role = roleOf(device.kernelName);
        m_devices.push_back(std::move(device));
    }
    for (Device& device : m_devices) {
        if (device.role != Role::path) continue;
        const auto head = std::ranges::find(m_devices, headOfPath(device.kernelName), &Device::kernelName);
        if (head != m_devices.end())
            device.head = static_cast<std::size_t>(std::distance(m_devices.begin(), head));
    }
}

LinuxBlockDevices::Role LinuxBlockDevices::roleOf(const std::string& kernelName) const {
    // Flash chips and floppies have a device too, but are no disks of anybody's.
    if (kernelName.starts_with("mtd") || kernelName.starts_with("fd")) return Role::none;
    std::string name = kernelName;
    // A file name has no slash, so the kernel writes another letter there.
    std::ranges::replace(name, '/', '!');
    const std::string folder = m_blockFolder + name;
    if (exists(folder + "/device")) {
        if (readSystemNumber(folder + "/hidden") != 1u) return Role::disk;
        return headOfPath(kernelName) ? Role::path : Role::none;
    }
    const bool isLayer = exists(folder + "/dm") || exists(folder + "/md") || exists(folder + "/bcache");
    return isLayer ? Role::layer : Role::none;
}

void LinuxBlockDevices::fillSilentHeads() {
    // Until about 6.4 the kernel counted on the paths alone. A head whose own line speaks is left alone.
    for (std::size_t head = 0; head < m_devices.size(); ++head) {
        Device& disk = m_devices[head];
        if (disk.role != Role::disk || disk.counters != BlockDriverCounters{}) continue;
        for (const Device& path : m_devices) {
            if (path.head == head) add(disk.counters, path.counters);
        }
    }
}

}  // namespace velmora
