#pragma once

#include "Shot.h"
#include "model/StatsSnapshot.h"

#include <vector>

namespace velmora {

/// The asked modules in all nine styles, each on a piece of the bar.
std::vector<Shot> takeStyleShots(const ShotOptions& options, const StatsSnapshot& snapshot);

}  // namespace velmora
