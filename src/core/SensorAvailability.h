#pragma once

#include "model/StatsSnapshot.h"

#include <bitset>

namespace velmora {

class ImproveEvents;

/// Reports figures that this machine does not give, each at most once per run.
class SensorAvailability {
public:
    explicit SensorAvailability(ImproveEvents& events) : m_events(events) {}

    void report(const SensorsStats& stats);

private:
    enum class Gap { cpuTemperature, fan, gpu };
    void report(Gap gap);

    ImproveEvents& m_events;
    std::bitset<3> m_reported;
};

}  // namespace velmora
