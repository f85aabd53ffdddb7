#pragma once

#include "platform/ThermalSensorSource.h"
#include "platform/linux/files/KeptFile.h"
#include "platform/linux/sensors/SlowSensorReading.h"

#include <memory>
#include <vector>

namespace velmora {

/// The chips below /sys/class/hwmon and the zones below /sys/class/thermal. The processor's own are read at
/// once; the others on the work queue, and only if somebody asks for all, or if the processor has none.
class LinuxThermalSensorSource final : public ThermalSensorSource {
public:
    LinuxThermalSensorSource(SystemRoot root, std::shared_ptr<SlowSensorReading> slow,
                             const MonotonicClock& clock);

    const std::vector<ThermalSensor>* sensors(Scope scope) override;

private:
    struct Direct {
        FoundSensor found;
        KeptFile file;
    };

    void findAnew();

    SystemRoot m_root;
    std::shared_ptr<SlowSensorReading> m_slow;
    const MonotonicClock& m_clock;
    bool m_hasSearched = false;
    double m_searchedAt = 0;
    std::vector<FoundSensor> m_found;
    std::vector<Direct> m_direct;
    std::vector<ThermalSensor> m_sensors;
};

}  // namespace velmora
