#include "panels/kit/Shapes.h"

#include "panels/kit/Points.h"
#include "panels/kit/Series.h"

#include <QPainterPath>
#include <QPen>

#include <cmath>

namespace velmora::Shapes {
namespace {

void beginFill(QPainter& painter, const QColor& color) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
}

}  // namespace

void dot(QPainter& painter, const QRectF& row, double left, const QColor& color) {
    beginFill(painter, color);
    painter.drawEllipse(QRectF(left, row.center().y() - kDot / 2, kDot, kDot));
}

void ring(QPainter& painter, QPointF centre, double diameter, double lineWidth, RingGeometry::Arc arc,
          const QColor& tint, Scheme scheme) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    const QRectF circle(centre.x() - diameter / 2, centre.y() - diameter / 2, diameter, diameter);
    painter.setPen(QPen(Tokens::track(scheme), lineWidth));
    painter.drawEllipse(circle);
    painter.setPen(QPen(tint, lineWidth, Qt::SolidLine, Qt::RoundCap));
    if (std::fabs(arc.spanDegrees) >= 360) {
        painter.drawEllipse(circle);
        return;
    }
    QPainterPath path;
    path.arcMoveTo(circle, arc.startDegrees);
    path.arcTo(circle, arc.startDegrees, arc.spanDegrees);
    painter.drawPath(path);
}

QRectF barFill(const QRectF& bar, double fraction) {
    return {bar.left(), bar.top(), bar.width() * Points::fraction(fraction), bar.height()};
}

void bar(QPainter& painter, const QRectF& bar, double fraction, const QColor& tint, Scheme scheme) {
    const double radius = bar.height() / 2;
    roundedRect(painter, bar, radius, Tokens::track(scheme));
    roundedRect(painter, barFill(bar, fraction), radius, tint);
}

void roundedRect(QPainter& painter, const QRectF& rect, double radius, const QColor& color) {
    if (rect.isEmpty()) return;
    beginFill(painter, color);
    painter.drawRoundedRect(rect, radius, radius);
}

}  // namespace velmora::Shapes
