#pragma once

#include "menubar/MenuBarGeometry.h"
#include "menubar/MenuBarText.h"

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

namespace velmora {

/// An empty image that is drawn into with coordinates in points from the bottom left. The one place where
/// these become pixels.
class MenuBarCanvas {
public:
    using Rect = MenuBarGeometry::Rect;

    /// `width` in points; the height is that of every item.
    MenuBarCanvas(double width, double ratio);
    MenuBarCanvas(const MenuBarCanvas&) = delete;
    MenuBarCanvas& operator=(const MenuBarCanvas&) = delete;

    double ratio() const { return m_ratio; }

    /// Draws everything that follows this far to the right.
    void setOrigin(double x) { m_origin = x; }
    double origin() const { return m_origin; }

    /// The rectangle with its edges on whole pixels.
    Rect aligned(const Rect& rect) const;
    /// The centre line of an outline whose outer edge lies on whole pixels.
    Rect alignedOutline(const Rect& rect, double lineWidth) const;

    void fill(const Rect& rect, const QColor& color);
    /// Fills what lies of `rect` within the rounded rectangle `clip`.
    void fillWithin(const Rect& clip, double radius, const Rect& rect, const QColor& color);
    void strokeRounded(const Rect& rect, double radius, double lineWidth, const QColor& color);
    void strokeOval(const Rect& rect, double lineWidth, const QColor& color);
    void fillWedge(const MenuBarGeometry::Wedge& wedge, const QColor& color);
    void drawText(const TextFont& font, QStringView text, MenuBarGeometry::TextPlace place,
                  const QColor& color);

    /// Ends the drawing.
    QImage finish();

private:
    QPointF pixels(MenuBarGeometry::Point point) const;
    QRectF pixels(const Rect& rect) const;
    void setLine(double lineWidth, const QColor& color);

    double m_ratio;
    double m_origin = 0;
    QImage m_image;
    QPainter m_painter;
};

}  // namespace velmora
