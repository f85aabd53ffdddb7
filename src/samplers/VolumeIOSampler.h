#pragma once

#include "platform/BlockDeviceSource.h"
#include "samplers/Samplers.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// Traffic by device name. A device's first appearance gives no rate, and neither does its return after a
/// pass in which it was missing or had moved nothing yet.
class VolumeIOSampler final : public VolumeIOSampling {
public:
    explicit VolumeIOSampler(BlockDeviceSource& devices);

    /// Empty for an interval that is not above 0, and on the first call.
    const std::map<std::string, VolumeIORates>& sample(double interval) override;

private:
    struct Counters {
        std::uint64_t read = 0;
        std::uint64_t write = 0;
    };
    /// The entries stay from pass to pass, so that a pass over the same devices allocates nothing.
    struct Device {
        std::optional<Counters> previous;
        std::optional<Counters> current;
    };

    /// Adds the counters of the class's devices that are not yet known in this pass.
    void collect(MediaClass mediaClass);

    BlockDeviceSource& m_source;
    std::vector<MediaCounters> m_media;
    std::map<std::string, Device> m_devices;
    std::map<std::string, VolumeIORates> m_rates;
};

}  // namespace velmora
