#pragma once

#include "Shot.h"
#include "model/StatsSnapshot.h"

#include <vector>

namespace velmora {

/// The content of the settings window on every tab and on the page of every asked module, each as high as its
/// page needs.
std::vector<Shot> takeSettingsShots(const ShotOptions& options, const StatsSnapshot& snapshot);

}  // namespace velmora
