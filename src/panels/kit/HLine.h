#pragma once

#include <QLineF>
#include <QPainter>
#include <QRectF>

/// A line across a rectangle at its vertical middle.
namespace velmora::HLine {

inline QLineF path(const QRectF& rect) {
    return {rect.left(), rect.center().y(), rect.right(), rect.center().y()};
}

/// The length of a dash and of the gap after it.
struct Dash {
    double on = 2;
    double off = 2;
};
/// Strokes the line, on whole pixel rows.
void draw(QPainter& painter, const QRectF& rect, double lineWidth, Dash dash, const QColor& color);

}  // namespace velmora::HLine
