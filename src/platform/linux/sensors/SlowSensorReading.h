#pragma once

#include "platform/linux/loop/BackgroundReading.h"
#include "platform/linux/sensors/SlowSensors.h"

#include <memory>

namespace velmora {

/// The slow sensors and fans, shared by the two sources that live on them, since a chip reads all of its
/// registers at once.
using SlowSensorReading = BackgroundReading<SlowSensors::Figures>;

/// How long the first question waits for a reading.
inline constexpr double kSlowSensorPatience = 0.025;

inline std::shared_ptr<SlowSensorReading> makeSlowSensorReading(const SystemRoot& root, WorkQueue& workQueue,
                                                                RunLoop& runLoop, const MonotonicClock& clock,
                                                                double patience = kSlowSensorPatience) {
    return std::make_shared<SlowSensorReading>(
        workQueue, runLoop, clock, patience,
        [sensors = std::make_shared<SlowSensors>(root, clock)](SlowSensors::Figures& figures) {
            return sensors->read(figures);
        });
}

}  // namespace velmora
