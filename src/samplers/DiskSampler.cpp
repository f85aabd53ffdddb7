#include "samplers/DiskSampler.h"

#include "base/CounterRate.h"
#include "platform/TextOrder.h"
#include "platform/VolumeSource.h"

#include <algorithm>
#include <compare>
#include <string_view>
#include <utility>

namespace velmora {
namespace {

constexpr std::string_view kRootPath = "/";

/// That of "/" is "/".
std::string lastComponent(const std::string& path) {
    const auto end = path.find_last_not_of('/');
    if (end == std::string::npos) return path;
    const auto slash = path.rfind('/', end);
    const auto begin = slash == std::string::npos ? 0 : slash + 1;
    return path.substr(begin, end + 1 - begin);
}

std::uint64_t bytesOrZero(std::optional<std::int64_t> bytes) {
    return static_cast<std::uint64_t>(std::max<std::int64_t>(bytes.value_or(0), 0));
}

}  // namespace

DiskSampler::DiskSampler(BlockDeviceSource& devices, VolumeSource& volumes, const TextOrder& order)
    : m_devices(devices), m_volumes(volumes), m_order(order) {}

DiskActivity DiskSampler::activity(double interval) {
    if (!m_devices.drivers(m_drivers)) return {};
    Sums sums;
    for (const BlockDriverCounters& driver : m_drivers) {
        sums.readBytes += driver.readBytes;
        sums.writeBytes += driver.writeBytes;
        sums.operations += driver.readOperations + driver.writeOperations;
    }
    DiskActivity activity{.readBytes = sums.readBytes, .writeBytes = sums.writeBytes};
    if (m_previous) {
        // A disk that comes or goes changes the sums, each of them by itself.
        activity.readPerSec = counterRate(m_previous->readBytes, sums.readBytes, interval);
        activity.writePerSec = counterRate(m_previous->writeBytes, sums.writeBytes, interval);
        activity.iops = counterRate(m_previous->operations, sums.operations, interval);
    }
    m_previous = sums;
    return activity;
}

std::vector<DiskVolume> DiskSampler::volumes() {
    std::vector<DiskVolume> volumes;
    for (std::string& path : m_volumes.mountedVolumes()) {
        auto values = m_volumes.values(path);
        if (!values || !values->isBrowsable.value_or(true)) continue;
        const std::uint64_t total = bytesOrZero(values->totalCapacity);
        if (total == 0) continue;
        DiskVolume volume;
        volume.name = values->name ? std::move(*values->name) : lastComponent(path);
        volume.total = total;
        volume.free = bytesOrZero(values->availableCapacity);
        volume.isInternal = values->isInternal.value_or(false);
        volume.isNetwork = !values->isLocal.value_or(true);
        volume.isRemovable =
            !volume.isNetwork && (values->isRemovable.value_or(false) || values->isEjectable.value_or(false));
        volume.bsd = bsdName(path);
        volume.path = std::move(path);
        volumes.push_back(std::move(volume));
    }
    std::ranges::stable_sort(volumes, [this](const DiskVolume& left, const DiskVolume& right) {
        if (left.path == kRootPath || right.path == kRootPath)
            return left.path == kRootPath && right.path != kRootPath;
        return std::is_lt(m_order.compareIgnoringCase(left.name, right.name));
    });
    return volumes;
}

std::optional<std::string> DiskSampler::bsdName(const std::string& path) {
    constexpr std::string_view kDevices = "/dev/";
    auto source = m_volumes.mountSource(path);
    if (!source || !source->starts_with(kDevices)) return std::nullopt;
    return source->substr(kDevices.size());
}

}  // namespace velmora
