#include "panels/kit/RingWidget.h"

#include "look/Ink.h"
#include "panels/kit/PanelText.h"
#include "panels/kit/Points.h"
#include "panels/kit/Shapes.h"

#include <QPainter>

#include <cmath>

namespace velmora {
namespace {

constexpr PanelFont kCaption = {10};
constexpr int kCaptionGap = 3;

/// How wide a text may be in the ring's middle, so that its corners do not reach the stroke.
double roomWithin(const RingStat& ring) {
    const double radius = (Points::held(ring.size) - Points::held(ring.lineWidth)) / 2;
    const double half = Points::held(ring.textSize) / 2;
    return radius > half ? 2 * std::sqrt(radius * radius - half * half) : 0;
}

int outerHeight(const RingStat& ring) {
    return Points::whole(Points::held(ring.size) + Points::held(ring.lineWidth));
}

}  // namespace

RingWidget::RingWidget(const RingStat& ring, Scheme scheme, QWidget* parent)
    : KitWidget(scheme, parent), m_ring(ring) {}

void RingWidget::setRing(const RingStat& ring) {
    if (m_ring == ring) return;
    m_ring = ring;
    refresh();
}

RingGeometry::RingNeed RingWidget::need() const {
    return {Points::held(m_ring.size), Points::held(m_ring.lineWidth),
            PanelText::width(kCaption, PanelText::plain(m_ring.caption))};
}

int RingWidget::heightNeeded() const {
    const int caption = m_ring.caption.empty() ? 0 : kCaptionGap + PanelText::lineHeight(kCaption);
    return outerHeight(m_ring) + caption;
}

KitWidget::Spoken RingWidget::spoken() const {
    return {QAccessible::Indicator, PanelText::plain(m_ring.caption), PanelText::plain(m_ring.text)};
}

void RingWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const double diameter = Points::held(m_ring.size);
    const double lineWidth = Points::held(m_ring.lineWidth);
    const QRectF box(0, 0, width(), outerHeight(m_ring));
    Shapes::ring(painter, box.center(), diameter, lineWidth, RingGeometry::statArc(m_ring.fraction),
                 m_ring.tint, scheme());

    const double inside = roomWithin(m_ring);
    const QString text = PanelText::plain(m_ring.text);
    const PanelFont font =
        PanelText::fitting({Points::whole(m_ring.textSize), QFont::DemiBold}, text, inside);
    PanelText::draw(painter, font, text, QRectF(box.center().x() - inside / 2, 0, inside, box.height()),
                    PanelText::Side::middle, Ink::primary(scheme()));
    PanelText::draw(painter, kCaption, PanelText::plain(m_ring.caption),
                    QRectF(0, box.height() + kCaptionGap, width(), PanelText::lineHeight(kCaption)),
                    PanelText::Side::middle, Ink::secondary(scheme()));
}

}  // namespace velmora
