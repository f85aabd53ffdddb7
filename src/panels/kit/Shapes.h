#pragma once

#include "look/Scheme.h"
#include "panels/kit/RingGeometry.h"

#include <QColor>
#include <QPainter>
#include <QRectF>

/// The small shapes that rows and rings are drawn of.
namespace velmora::Shapes {

/// A dot before a label takes this much room, its gap included.
inline constexpr double kDot = 5;
inline constexpr double kDotAndGap = 11;

/// A dot at `left`, in the middle of `row`.
void dot(QPainter& painter, const QRectF& row, double left, const QColor& color);

/// A ring around `centre`: its track, and the arc with round ends over it.
void ring(QPainter& painter, QPointF centre, double diameter, double lineWidth, RingGeometry::Arc arc,
          const QColor& tint, Scheme scheme);

/// The filled part of a bar.
QRectF barFill(const QRectF& bar, double fraction);
/// A bar with round ends, its track and its filled part.
void bar(QPainter& painter, const QRectF& bar, double fraction, const QColor& tint, Scheme scheme);

void roundedRect(QPainter& painter, const QRectF& rect, double radius, const QColor& color);

}  // namespace velmora::Shapes
