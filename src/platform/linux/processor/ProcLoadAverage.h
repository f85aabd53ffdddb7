#pragma once

#include "model/StatsSnapshot.h"

#include <optional>
#include <string_view>

namespace velmora {

/// The text of /proc/loadavg: "0.15 0.10 0.08 2/123 4567".
struct ProcLoadAverage {
    LoadAverage load;
    int threads = 0;  ///< Of the whole system, those of the kernel included.
};

/// Nothing for malformed text.
std::optional<ProcLoadAverage> parseProcLoadAverage(std::string_view text);

}  // namespace velmora
