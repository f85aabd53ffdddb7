#include "menubar/MenuBarCanvas.h"

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

/// So that a product such as 22 times 1.1 does not round up by its error.
constexpr double kRoundingSlack = 1e-6;

int wholePixels(double points, double ratio) {
    return std::max(1, static_cast<int>(std::ceil(points * ratio - kRoundingSlack)));
}

}  // namespace

MenuBarCanvas::MenuBarCanvas(double width, double ratio)
    : m_ratio(ratio),
      m_image(wholePixels(width, ratio), wholePixels(MenuBarGeometry::kHeight, ratio),
              QImage::Format_ARGB32_Premultiplied) {
    m_image.fill(Qt::transparent);
    m_painter.begin(&m_image);
    m_painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
}

MenuBarCanvas::Rect MenuBarCanvas::aligned(const Rect& rect) const {
    Rect moved = rect;
    moved.x += m_origin;
    moved = MenuBarGeometry::alignedToPixels(moved, m_ratio);
    moved.x -= m_origin;
    return moved;
}

MenuBarCanvas::Rect MenuBarCanvas::alignedOutline(const Rect& rect, double lineWidth) const {
    return MenuBarGeometry::inset(aligned(MenuBarGeometry::inset(rect, -lineWidth / 2)), lineWidth / 2);
}

void MenuBarCanvas::fill(const Rect& rect, const QColor& color) {
    m_painter.fillRect(pixels(rect), color);
}

void MenuBarCanvas::fillWithin(const Rect& clip, double radius, const Rect& rect, const QColor& color) {
    QPainterPath rounded;
    rounded.addRoundedRect(pixels(clip), radius * m_ratio, radius * m_ratio);
    QPainterPath square;
    square.addRect(pixels(rect));
    m_painter.fillPath(rounded.intersected(square), color);
}

void MenuBarCanvas::strokeRounded(const Rect& rect, double radius, double lineWidth, const QColor& color) {
    setLine(lineWidth, color);
    m_painter.drawRoundedRect(pixels(rect), radius * m_ratio, radius * m_ratio);
}

void MenuBarCanvas::strokeOval(const Rect& rect, double lineWidth, const QColor& color) {
    setLine(lineWidth, color);
    m_painter.drawEllipse(pixels(rect));
}

void MenuBarCanvas::fillWedge(const MenuBarGeometry::Wedge& wedge, const QColor& color) {
    const QPointF centre = pixels(wedge.centre);
    const double radius = wedge.radius * m_ratio;
    const QRectF circle(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    QPainterPath path;
    if (std::fabs(wedge.spanDegrees) >= 360) {
        path.addEllipse(circle);
    } else {
        path.moveTo(centre);
        path.arcTo(circle, wedge.startDegrees, wedge.spanDegrees);
        path.closeSubpath();
    }
    m_painter.fillPath(path, color);
}

void MenuBarCanvas::drawText(const TextFont& font, QStringView text, MenuBarGeometry::TextPlace place,
                             const QColor& color) {
    const QPointF start(m_origin + place.x, MenuBarGeometry::kHeight - place.y);
    MenuBarText::draw(m_painter, font, text, start, m_ratio, color);
}

QImage MenuBarCanvas::finish() {
    m_painter.end();
    m_image.setDevicePixelRatio(m_ratio);
    return m_image;
}

QPointF MenuBarCanvas::pixels(MenuBarGeometry::Point point) const {
    return {(m_origin + point.x) * m_ratio, (MenuBarGeometry::kHeight - point.y) * m_ratio};
}

QRectF MenuBarCanvas::pixels(const Rect& rect) const {
    return {(m_origin + rect.x) * m_ratio, (MenuBarGeometry::kHeight - rect.top()) * m_ratio,
            rect.width * m_ratio, rect.height * m_ratio};
}

void MenuBarCanvas::setLine(double lineWidth, const QColor& color) {
    m_painter.setPen(QPen(color, lineWidth * m_ratio));
    m_painter.setBrush(Qt::NoBrush);
}

}  // namespace velmora
