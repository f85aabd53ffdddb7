#pragma once

#include <QPainter>
#include <QRectF>

#include <cmath>

namespace velmora {

/// Moves places in a painter's coordinates to whole pixels of the screen, so that edges are sharp.
class PixelGrid {
public:
    explicit PixelGrid(const QPainter& painter) : m_toDevice(painter.deviceTransform()) {}

    double x(double x) const { return onPixel(x, m_toDevice.m11(), m_toDevice.dx()); }
    double y(double y) const { return onPixel(y, m_toDevice.m22(), m_toDevice.dy()); }
    /// The rectangle with its left and right edges on whole pixels, at least one pixel wide.
    QRectF withSharpSides(const QRectF& rect) const {
        const double left = x(rect.left());
        const double right = std::fmax(x(rect.right()), left + 1 / m_toDevice.m11());
        return {left, rect.top(), right - left, rect.height()};
    }

private:
    static double onPixel(double value, double scale, double offset) {
        return (std::round(value * scale + offset) - offset) / scale;
    }

    QTransform m_toDevice;
};

}  // namespace velmora
