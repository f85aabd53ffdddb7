#pragma once

#include <QRectF>
#include <Qt>

class QPainter;

namespace velmora {

/// What the ring is drawn on: it must stand out from it.
enum class RingGround { field, accent };

/// The mark of the control that has the keyboard's focus: a line along the inside of its edge.
void paintFocusRing(QPainter& painter, const QRectF& bounds, double cornerRadius, RingGround ground);

/// Whether a control that gets the focus for this reason shows it: only to who moves it with the keyboard.
/// A focus that comes back from a menu or from another window looks as it did `before`.
bool focusShows(Qt::FocusReason reason, bool before);

}  // namespace velmora
