#pragma once

#include "platform/FanSource.h"
#include "platform/linux/sensors/SlowSensorReading.h"

#include <memory>
#include <utility>

namespace velmora {

/// The fans that the chips below /sys/class/hwmon know, at most fifteen. A header of a main board counts once
/// it has shown that something turns there; the fan of a laptop or of a graphics card counts at rest too.
class LinuxFanSource final : public FanSource {
public:
    explicit LinuxFanSource(std::shared_ptr<SlowSensorReading> slow) : m_slow(std::move(slow)) {}

    void read(std::vector<std::optional<double>>& speeds) override;

private:
    std::shared_ptr<SlowSensorReading> m_slow;
};

}  // namespace velmora
