#pragma once

#include "base/Date.h"
#include "core/DiskDay.h"
#include "core/LocalDay.h"
#include "core/NetworkDay.h"
#include "core/SensorDay.h"

#include <cstdint>

namespace velmora {

/// The figures of the day and the month. They survive a restart of the program: everything that they rest on
/// is read from the defaults at construction and written there when it changes.
class DailyCounters {
public:
    explicit DailyCounters(Defaults& defaults) : m_disk(defaults), m_network(defaults), m_sensors(defaults) {}

    void countDisk(Date now, std::uint64_t read, std::uint64_t write, DiskStats& stats) {
        m_disk.count(m_today.key(now), read, write, stats);
    }
    void countNetwork(Date now, double elapsed, NetworkStats& stats) {
        m_network.count(m_today.key(now), elapsed, stats);
    }
    void countSensors(Date now, double temperature, double fastestFan, SensorsStats& stats) {
        m_sensors.count(m_today.key(now), temperature, fastestFan, stats);
    }

private:
    LocalDay m_today;
    DiskDay m_disk;
    NetworkDay m_network;
    SensorDay m_sensors;
};

}  // namespace velmora
