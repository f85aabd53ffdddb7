#include "settings/controls/FocusRing.h"

#include "look/Theme.h"

#include <QPainter>
#include <QPen>

#include <algorithm>

namespace velmora {
namespace {

constexpr double kWidth = 2;
// On the accent colour the line is white and stands off the edge, so that the control keeps its outline.
constexpr double kWidthOnAccent = 1.5;
constexpr double kAccentEdge = 1;

}  // namespace

void paintFocusRing(QPainter& painter, const QRectF& bounds, double cornerRadius, RingGround ground) {
    const bool onAccent = ground == RingGround::accent;
    const double width = onAccent ? kWidthOnAccent : kWidth;
    const double inset = width / 2 + (onAccent ? kAccentEdge : 0);
    const double radius = std::max(cornerRadius - inset, 0.0);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(onAccent ? QColor(Qt::white) : Theme::accent, width));
    painter.drawRoundedRect(bounds.adjusted(inset, inset, -inset, -inset), radius, radius);
    painter.restore();
}

bool focusShows(Qt::FocusReason reason, bool before) {
    switch (reason) {
        case Qt::TabFocusReason:
        case Qt::BacktabFocusReason:
        case Qt::ShortcutFocusReason:
            return true;
        case Qt::PopupFocusReason:
        case Qt::ActiveWindowFocusReason:
            return before;
        case Qt::MouseFocusReason:
        case Qt::MenuBarFocusReason:
        case Qt::OtherFocusReason:
        case Qt::NoFocusReason:
            return false;
    }
    return false;
}

}  // namespace velmora
