#include "panels/kit/ChipPlacement.h"

#include "panels/kit/GraphHoverInfo.h"

#include <algorithm>

namespace velmora {

QPointF chipPosition(const GraphHoverInfo& info, const QRectF& rect, QSizeF panel, QSizeF measured) {
    constexpr QSizeF kLeast(20, 16);
    constexpr double kFlip = 0.55;
    constexpr double kFromLine = 5;
    constexpr double kFromGraph = 6;
    constexpr double kFromEdge = 2;

    const QSizeF chip = measured.expandedTo(kLeast);
    const double halfWidth = chip.width() / 2;
    const double halfHeight = chip.height() / 2;

    double x = rect.center().x();
    if (info.lineFraction) {
        const double line = rect.left() + rect.width() * *info.lineFraction;
        x = *info.lineFraction > kFlip ? line - kFromLine - halfWidth : line + kFromLine + halfWidth;
    }
    double y = rect.bottom() + kFromGraph + halfHeight;
    if (y + halfHeight > panel.height() - kFromEdge) y = rect.top() - kFromGraph - halfHeight;

    // A chip wider than the panel begins at the left edge, where its texts begin.
    x = std::max(std::min(x, panel.width() - halfWidth - kFromEdge), halfWidth + kFromEdge);
    return {x, y};
}

}  // namespace velmora
