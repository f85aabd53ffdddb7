#pragma once

#include "platform/BlockDeviceSource.h"
#include "samplers/Samplers.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

class TextOrder;
class VolumeSource;

/// Traffic of all disks together, and the list of mounted volumes.
class DiskSampler final : public DiskSampling {
public:
    DiskSampler(BlockDeviceSource& devices, VolumeSource& volumes, const TextOrder& order);

    /// All zeros if the drivers cannot be listed; the next good sample then takes its rates from the last
    /// good one.
    DiskActivity activity(double interval) override;
    /// The volume at "/" first, the others by name.
    std::vector<DiskVolume> volumes() override;
    /// Name of the device that the path's volume is mounted from; nothing for a volume without a device.
    std::optional<std::string> bsdName(const std::string& path);

private:
    struct Sums {
        std::uint64_t readBytes = 0;
        std::uint64_t writeBytes = 0;
        std::uint64_t operations = 0;
    };

    BlockDeviceSource& m_devices;
    VolumeSource& m_volumes;
    const TextOrder& m_order;
    std::vector<BlockDriverCounters> m_drivers;
    std::optional<Sums> m_previous;
};

}  // namespace velmora
