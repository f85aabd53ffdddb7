#pragma once

#include <QImage>
#include <QSizeF>

/// The black shadow of a rectangle.
namespace velmora::SoftShadow {

/// How dark the shadow of an edge is at a distance from it, outwards positive: one half at the edge, nothing
/// from `radius` on, the whole from `radius` within.
double edge(double distance, double radius);

/// The shadow of a rectangle of `size` points, with a margin of `radius` on each side, at `ratio` pixels per
/// point.
QImage image(QSizeF size, double radius, double opacity, double ratio);

}  // namespace velmora::SoftShadow
