#include "panels/kit/HoverTracker.h"

#include <QEnterEvent>
#include <QMouseEvent>
#include <QWidget>

namespace velmora {

HoverTracker::HoverTracker(QWidget& tracked) : QObject(&tracked) {
    tracked.setMouseTracking(true);
    tracked.installEventFilter(this);
}

bool HoverTracker::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
        case QEvent::Enter:
            report(static_cast<QEnterEvent*>(event)->position());
            break;
        case QEvent::MouseMove:
            report(static_cast<QMouseEvent*>(event)->position());
            break;
        // A widget that is hidden under the pointer is not always told that the pointer left.
        case QEvent::Leave:
        case QEvent::Hide:
            report(std::nullopt);
            break;
        default:
            break;
    }
    return false;
}

void HoverTracker::report(std::optional<QPointF> place) const {
    if (onMove) onMove(place);
}

}  // namespace velmora
