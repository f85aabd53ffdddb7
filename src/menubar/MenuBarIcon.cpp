#include "menubar/MenuBarIcon.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace velmora::MenuBarIcon {
namespace {

constexpr double kSide = 16;
constexpr double kDrawingScale = 0.8;
constexpr double kLine = 1.5;
constexpr double kCorner = 1.25;
/// The share of a corner's radius at which the control points of a Bézier curve make it a quarter circle.
constexpr double kQuarterCircle = 0.5523;

/// In the drawing's own space, whose y grows downwards.
struct GaugeBar {
    double left;
    double right;
    double top;
    double bottom;
};
constexpr GaugeBar kBars[] = {{2.5, 5.5, 10.0, 17.5}, {8.5, 11.5, 2.5, 17.5}, {14.5, 17.5, 6.5, 17.5}};

QPainterPath roundedBar(const GaugeBar& bar) {
    constexpr double kControl = kCorner * (1 - kQuarterCircle);
    QPainterPath path;
    path.moveTo(bar.left + kCorner, bar.top);
    path.lineTo(bar.right - kCorner, bar.top);
    path.cubicTo(bar.right - kControl, bar.top, bar.right, bar.top + kControl, bar.right, bar.top + kCorner);
    path.lineTo(bar.right, bar.bottom - kCorner);
    path.cubicTo(bar.right, bar.bottom - kControl, bar.right - kControl, bar.bottom, bar.right - kCorner,
                 bar.bottom);
    path.lineTo(bar.left + kCorner, bar.bottom);
    path.cubicTo(bar.left + kControl, bar.bottom, bar.left, bar.bottom - kControl, bar.left,
                 bar.bottom - kCorner);
    path.lineTo(bar.left, bar.top + kCorner);
    path.cubicTo(bar.left, bar.top + kControl, bar.left + kControl, bar.top, bar.left + kCorner, bar.top);
    path.closeSubpath();
    return path;
}

}  // namespace

MenuBarImage gauge(double ratio) {
    const double usable = ratio > 0 && std::isfinite(ratio) ? ratio : 1.0;
    const int side = std::max(1, static_cast<int>(std::ceil(kSide * usable - 1e-6)));
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(kDrawingScale * usable, kDrawingScale * usable);
    painter.setPen(QPen(Qt::black, kLine, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (const GaugeBar& bar : kBars) painter.drawPath(roundedBar(bar));
    painter.end();
    image.setDevicePixelRatio(usable);
    return {image, true};
}

}  // namespace velmora::MenuBarIcon
