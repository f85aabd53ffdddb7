#pragma once

#include "look/Scheme.h"
#include "panels/kit/Views.h"

#include <QPainter>
#include <QRectF>

/// Draws the four history graphs.
namespace velmora::GraphPainter {

/// The part of `box` that the time axis runs across: all of it, but for a temperature graph, whose range
/// stands in a column at the left that is as wide for every range of up to three digits.
QRectF plot(const Graph& graph, const QRectF& box);

void paint(QPainter& painter, const Graph& graph, const QRectF& box, Scheme scheme);

/// The upright line of a hovered slot.
void paintHoverLine(QPainter& painter, const QRectF& plot, int slot, Scheme scheme);

}  // namespace velmora::GraphPainter
