#pragma once

#include "model/StatsSnapshot.h"

#include <string>

namespace velmora {

class Defaults;

/// The day's highest temperature, and the highest fan speed ever seen on this machine.
class SensorDay {
public:
    explicit SensorDay(Defaults& defaults);

    /// Takes the primary temperature (0 without one) and the fastest fan (0 without fans), and writes
    /// `maxToday` and `fanMaxRpm`.
    void count(const std::string& day, double temperature, double fastestFan, SensorsStats& stats);

private:
    Defaults& m_defaults;
    std::string m_day;
    double m_maxToday = 0;
    double m_fanMaxRpm = 0;
};

}  // namespace velmora
