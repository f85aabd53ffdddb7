#pragma once

#include "model/StatsSnapshot.h"

#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// The last line of a file that velmora-figures wrote. Nothing, with a line in `error`, if there is none.
std::optional<StatsSnapshot> figuresFromFile(const std::string& path, std::string& error);

/// This machine's figures, sampled some times in a row so that graphs have bars. Takes some seconds.
StatsSnapshot liveFigures(const std::vector<StatsModule>& modules);

}  // namespace velmora
