#pragma once

#include "platform/MonotonicClock.h"
#include "platform/ThermalSensorSource.h"
#include "platform/linux/files/KeptFile.h"
#include "platform/linux/files/SystemRoot.h"
#include "platform/linux/sensors/NvidiaTemperatures.h"
#include "platform/linux/sensors/SensorScan.h"

#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace velmora {

/// Reads the sensors and fans whose chips take their time; one thread only. A device that sleeps is not
/// asked, since asking would wake it. Chips come and go, so they are looked for anew now and then.
class SlowSensors {
public:
    struct Figures {
        std::vector<ThermalSensor> temperatures;
        std::vector<std::optional<double>> fans;
        friend bool operator==(const Figures&, const Figures&) = default;
    };

    SlowSensors(SystemRoot root, const MonotonicClock& clock,
                NvidiaTemperatures::Loader loadNvidia = loadNvidiaLibrary)
        : m_root(root), m_clock(clock), m_nvidia(std::move(root), std::move(loadNvidia)) {}

    /// Overwrites the figures, reusing their storage, and gives the seconds after which to read again.
    double read(Figures& figures);

private:
    struct Sensor {
        FoundSensor found;
        KeptFile file;
        double readAt = 0;
        std::optional<double> celsius;
        bool wasRead = false;
    };
    struct Fan {
        FoundFan found;
        KeptFile file;
    };

    void findAnew();
    void readSensor(Sensor& sensor, double now);
    std::optional<double> readFan(Fan& fan);

    SystemRoot m_root;
    const MonotonicClock& m_clock;
    bool m_hasSearched = false;
    double m_searchedAt = 0;
    FoundSlow m_found;
    std::vector<Sensor> m_sensors;
    std::vector<Fan> m_fans;
    NvidiaTemperatures m_nvidia;
    std::set<std::string> m_headersThatTurned;  ///< Paths of the fans of boards that are connected.
};

}  // namespace velmora
