#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>

namespace velmora {

struct GraphHoverInfo;

/// The middle of the hover chip in a panel. `rect` is the graph in the panel, `panel` the panel's size and
/// `measured` the chip's. The chip stands below the graph, or above it where it would pass the panel's lower
/// edge, and beside the hover line, on the side that has more room.
QPointF chipPosition(const GraphHoverInfo& info, const QRectF& rect, QSizeF panel, QSizeF measured);

}  // namespace velmora
