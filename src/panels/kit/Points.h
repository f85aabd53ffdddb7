#pragma once

#include <algorithm>
#include <cmath>

/// Sizes of a panel's value become sizes on the screen.
namespace velmora::Points {

/// No single part of a panel is larger.
inline constexpr double kMost = 2000;

/// The size held within 0...2000; 0 if it is no number.
inline double held(double size) {
    return std::isfinite(size) ? std::clamp(size, 0.0, kMost) : 0;
}

/// The same in whole points, so that what stands there has room.
inline int whole(double size) {
    return static_cast<int>(std::ceil(held(size)));
}

/// The fraction held within `least`...1; `least` if it is no number.
inline double fraction(double fraction, double least = 0) {
    return std::isfinite(fraction) ? std::clamp(fraction, least, 1.0) : least;
}

}  // namespace velmora::Points
