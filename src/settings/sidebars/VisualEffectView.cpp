#include "settings/sidebars/VisualEffectView.h"

#include "settings/controls/SettingsScheme.h"

#include <QPaintEvent>
#include <QPainter>

namespace velmora {
namespace {

constexpr float kSeeThroughOpacity = 0.76F;

QColor tone(VisualEffectView::Material material, Scheme scheme) {
    switch (material) {
        case VisualEffectView::Material::sidebar:
            return scheme == Scheme::dark ? QColor(47, 47, 51) : QColor(227, 227, 231);
    }
    return {};
}

}  // namespace

VisualEffectView::VisualEffectView(Material material, Blending blending, QWidget* parent)
    : QWidget(parent), m_material(material), m_blending(blending) {}

void VisualEffectView::setSeesThrough(bool seesThrough) {
    if (m_seesThrough == seesThrough) return;
    m_seesThrough = seesThrough;
    update();
}

QColor VisualEffectView::tint(Scheme scheme) const {
    QColor color = tone(m_material, scheme);
    if (m_seesThrough && m_blending == Blending::behindWindow) color.setAlphaF(kSeeThroughOpacity);
    return color;
}

void VisualEffectView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    // Replaces what is there: a tint over a tint would not let as much through.
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(event->rect(), tint(schemeOf(this)));
}

}  // namespace velmora
