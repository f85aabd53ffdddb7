#include "platform/qt/strip/StripGeometry.h"

#include <algorithm>
#include <cmath>

namespace velmora::StripGeometry {
namespace {

// Half of the clock's width with the date beside it, and the gap to it.
constexpr int kClockHalf = 120;
constexpr int kClockGap = 16;
// What the indicators at the right end of the bar take, with a few of them shown.
constexpr int kIndicators = 200;

std::uint32_t devicePixel(int logical, int origin, double ratio, double (*round)(double)) {
    return static_cast<std::uint32_t>(std::max(0.0, origin + round((logical - origin) * ratio)));
}
double roundedDown(double value) {
    return std::floor(value);
}
double roundedUp(double value) {
    return std::ceil(value);
}

}  // namespace

std::vector<QRect> cells(const std::vector<int>& imageWidths) {
    std::vector<QRect> cells;
    cells.reserve(imageWidths.size());
    int x = 0;
    for (const int width : imageWidths) {
        cells.emplace_back(x, 0, width + kCellPadding, kHeight);
        x += width + kCellPadding;
    }
    return cells;
}

int totalWidth(const std::vector<int>& imageWidths) {
    int total = 0;
    for (const int width : imageWidths) total += width + kCellPadding;
    return total;
}

QRect dock(int width, const QRect& screen, const QRect& available, const std::optional<QRect>& present,
           const std::vector<QRect>& others) {
    const int availableRight = available.x() + available.width();
    int y = available.y();
    if (present && screen.contains(*present)) {
        const int bottom = present->y() + present->height();
        const auto explains = [&](const QRect& other) {
            return other.y() >= bottom && other.y() + other.height() == available.y();
        };
        if (bottom == y || std::ranges::any_of(others, explains)) y = present->y();
    }
    return {std::max(availableRight - width, screen.x()), y, width, kHeight};
}

QRect topBar(int width, const QRect& screen, const QRect& available) {
    const int middle = screen.x() + screen.width() / 2;
    const int end = screen.x() + screen.width() - kIndicators;
    const int afterClock = middle + kClockHalf + kClockGap;
    const int x = std::max(screen.x(), std::min(afterClock, end - width));
    const int barHeight = available.y() - screen.y();
    return {x, screen.y() + std::max(0, (barHeight - kHeight) / 2), width, kHeight};
}

Strut strut(const QRect& dock, const QRect& screen, double ratio) {
    const std::uint32_t end = devicePixel(dock.x() + dock.width(), screen.x(), ratio, roundedUp);
    return {devicePixel(dock.y() + dock.height(), screen.y(), ratio, roundedUp),
            devicePixel(dock.x(), screen.x(), ratio, roundedDown), end > 0 ? end - 1 : 0};
}

}  // namespace velmora::StripGeometry
