#pragma once

#include "model/StatsSnapshot.h"

#include <string>

namespace velmora {

/// The figures of the status bar as one line for people: "14:03:07  CPU 12%  MEM 34% …". Absent ones are
/// dashes.
std::string figuresText(const StatsSnapshot& snapshot);

}  // namespace velmora
