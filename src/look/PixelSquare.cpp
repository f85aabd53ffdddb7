#include "look/PixelSquare.h"

#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

/// A side that misses a whole number of pixels by less than this is one that was rounded on the way.
constexpr double kRounding = 1e-4;

bool isUsable(const QRectF& bounds) {
    return std::isfinite(bounds.x()) && std::isfinite(bounds.y()) && std::isfinite(bounds.width()) &&
           std::isfinite(bounds.height()) && bounds.width() > 0 && bounds.height() > 0;
}

bool keepsPixelsSquare(const QTransform& transform) {
    return transform.type() <= QTransform::TxScale && transform.m11() > 0 &&
           qFuzzyCompare(transform.m11(), transform.m22());
}

QRectF squareAround(QPointF middle, double side) {
    return {middle.x() - side / 2, middle.y() - side / 2, side, side};
}

}  // namespace

std::optional<PixelSquare> PixelSquare::within(const QRectF& bounds, const QPainter& painter) {
    if (!isUsable(bounds) || !painter.isActive()) return {};
    const QTransform& toDevice = painter.deviceTransform();
    const double side = std::min(bounds.width(), bounds.height());
    const double scale = std::sqrt(std::abs(toDevice.determinant()));
    const double deviceSide = std::floor(side * scale + kRounding);
    if (!(deviceSide >= 1)) return {};

    if (!keepsPixelsSquare(toDevice) || deviceSide > kMostPixels) {
        const int pixels = static_cast<int>(std::min<double>(deviceSide, kMostPixels));
        return PixelSquare{squareAround(bounds.center(), side), pixels, false};
    }
    const QRectF onDevice = squareAround(toDevice.map(bounds.center()), deviceSide);
    const QRectF snapped(std::round(onDevice.x()), std::round(onDevice.y()), deviceSide, deviceSide);
    return PixelSquare{toDevice.inverted().mapRect(snapped), static_cast<int>(deviceSide), true};
}

void PixelSquare::draw(QPainter& painter, const QImage& picture) const {
    const bool wasSmooth = painter.testRenderHint(QPainter::SmoothPixmapTransform);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, !isExact);
    painter.drawImage(box, picture);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, wasSmooth);
}

}  // namespace velmora
