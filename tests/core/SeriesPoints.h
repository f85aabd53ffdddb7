#pragma once

#include "base/History.h"

#include <cstddef>
#include <vector>

namespace velmora {

/// A series as the container that matchers know.
template <typename T, std::size_t Cap>
std::vector<T> points(const History<T, Cap>& series) {
    return std::vector<T>(series.begin(), series.end());
}

}  // namespace velmora
