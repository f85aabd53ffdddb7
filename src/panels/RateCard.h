#pragma once

#include "model/StatsSnapshot.h"
#include "panels/PanelContext.h"

#include <string_view>

namespace velmora {

/// One direction of a device's traffic, in bytes per second.
struct RateDirection {
    std::string_view labelKey;
    double rate = 0;
    const ShortSeries& history;
};

/// Both rates, large, their histories away from a centre line, and the peaks that the graph shows. `leading`
/// stands left and grows upward.
MenuCard rateCard(const RateDirection& leading, const RateDirection& trailing, const PanelContext& context);

}  // namespace velmora
