#pragma once

#include "Shot.h"

#include <vector>

namespace velmora {

/// All pictures in one, a row for each group, on the scheme's backdrop.
QImage contactSheet(const std::vector<Shot>& shots, const ShotOptions& options);

}  // namespace velmora
