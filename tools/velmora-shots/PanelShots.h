#pragma once

#include "Shot.h"
#include "model/StatsSnapshot.h"

#include <vector>

namespace velmora {

/// The asked modules' panels as they open, with the processes and tools of this machine; over figures from a
/// file without either, so that the picture is the same everywhere. Live, it takes some seconds.
std::vector<Shot> takePanelShots(const ShotOptions& options, const StatsSnapshot& snapshot);

}  // namespace velmora
