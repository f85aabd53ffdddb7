#pragma once

#include "base/Date.h"
#include "core/BatteryLongSeries.h"
#include "samplers/Samplers.h"

namespace velmora {

/// Makes the battery's record: figures and series.
class BatteryStage {
public:
    BatteryStage(BatterySampling& battery, Defaults& defaults, const Display& display)
        : m_battery(battery), m_long(defaults, display) {}

    void sample(Date now, BatteryStats& stats);

private:
    BatterySampling& m_battery;
    BatteryLongSeries m_long;
};

}  // namespace velmora
