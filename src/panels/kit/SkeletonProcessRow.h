#pragma once

#include "look/Scheme.h"

#include <QPainter>
#include <QRectF>

#include <array>

/// What stands in the place of a process that is not known yet: its icon, name and figure as plain shapes.
namespace velmora::SkeletonProcessRow {

struct Shape {
    QRectF rect;
    double radius = 0;
};
/// In the row's coordinates. In a narrow row the figure goes first, then the name.
std::array<Shape, 3> shapes(double width, double height);

void draw(QPainter& painter, const QRectF& row, Scheme scheme);

}  // namespace velmora::SkeletonProcessRow
