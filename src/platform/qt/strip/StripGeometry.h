#pragma once

#include "platform/qt/x11/Strut.h"

#include <QRect>

#include <cstdint>
#include <optional>
#include <vector>

namespace velmora {

/// The measures of the strip, in logical coordinates unless said otherwise.
namespace StripGeometry {

inline constexpr int kImageHeight = 22;
inline constexpr int kMargin = 2;
inline constexpr int kHeight = kImageHeight + 2 * kMargin;
inline constexpr int kCellPadding = 6;

/// The cells from left to right inside the strip, for the widths of their images.
std::vector<QRect> cells(const std::vector<int>& imageWidths);
int totalWidth(const std::vector<int>& imageWidths);

/// The dock's place: right-aligned at the top of what is available. What is available shrinks for the dock
/// itself (`present`), and for docks that others put below it (`others`): neither is a reason to move.
QRect dock(int width, const QRect& screen, const QRect& available, const std::optional<QRect>& present,
           const std::vector<QRect>& others = {});

/// The place in the desktop's top bar: right of the clock in its middle, moved left rather than into the
/// indicators at its end, and in the middle of the bar's height.
QRect topBar(int width, const QRect& screen, const QRect& available);

/// What a dock reserves. A screen's origin is the same in logical and in device pixels.
Strut strut(const QRect& dock, const QRect& screen, double ratio);

}  // namespace StripGeometry
}  // namespace velmora
