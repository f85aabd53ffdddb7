#pragma once

#include <cstdint>
#include <optional>

namespace velmora {

/// Units per second of a counter that only grows. 0 on the first sample (no previous value), when no time has
/// passed, and when the counter fell (a reset). A difference of 64-bit counters is taken before the
/// conversion to double, so no precision is lost at large values.
constexpr double counterRate(std::optional<std::uint64_t> previous, std::uint64_t current, double seconds) {
    if (!previous || !(seconds > 0) || current < *previous) return 0;
    return static_cast<double>(current - *previous) / seconds;
}

}  // namespace velmora
