#include "core/BatteryStage.h"

namespace velmora {

void BatteryStage::sample(Date now, BatteryStats& stats) {
    m_battery.sample(stats);
    stats.history.append(stats.percent / 100.0);
    stats.pluggedHistory.append(stats.isPluggedIn);
    m_long.sample(now, stats);
}

}  // namespace velmora
