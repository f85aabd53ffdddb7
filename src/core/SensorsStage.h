#pragma once

#include "base/Date.h"
#include "core/SensorAvailability.h"
#include "samplers/Samplers.h"

#include <optional>
#include <vector>

namespace velmora {

class DailyCounters;

/// Makes the sensors' record: temperatures, fans, series, highest values.
class SensorsStage {
public:
    SensorsStage(FanSampling& fan, ImproveEvents& events, DailyCounters& daily)
        : m_fan(fan), m_availability(events), m_daily(daily) {}

    /// `gpu` and `groups` were read once for the whole tick.
    void sample(Date now, std::optional<double> gpu, const std::vector<TemperatureReading>& groups,
                SensorsStats& stats);

private:
    FanSampling& m_fan;
    SensorAvailability m_availability;
    DailyCounters& m_daily;
    Date m_longSampledAt = Date::distantPast();
};

}  // namespace velmora
