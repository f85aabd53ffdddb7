#include "panels/kit/CoreGridWidget.h"

#include "panels/kit/PanelText.h"
#include "panels/kit/Points.h"
#include "panels/kit/RingGeometry.h"
#include "panels/kit/Shapes.h"

#include <QPaintEvent>
#include <QPainter>

namespace velmora {

int CoreGridWidget::heightForWidth(int width) const {
    const RingGeometry::CoreGridLayout layout(width, value().spacing);
    return Points::whole(layout.height(value().rings.size()));
}

KitWidget::Spoken CoreGridWidget::spoken() const {
    return {QAccessible::Chart, PanelText::plain(value().name), PanelText::plain(value().value)};
}

void CoreGridWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const RingGeometry::CoreGridLayout layout(width(), value().spacing);
    constexpr double kReach = (RingGeometry::kCoreDiameter + RingGeometry::kCoreLineWidth) / 2;
    for (std::size_t index = 0; index < value().rings.size(); ++index) {
        const QPointF centre = layout.centre(index);
        if (centre.y() + kReach < event->rect().top()) continue;
        if (centre.y() - kReach > event->rect().bottom() + 1) break;
        const CoreRing& ring = value().rings[index];
        Shapes::ring(painter, centre, RingGeometry::kCoreDiameter, RingGeometry::kCoreLineWidth,
                     RingGeometry::coreArc(ring.fraction), ring.tint, scheme());
    }
}

}  // namespace velmora
