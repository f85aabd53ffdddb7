#include "settings/sidebars/CountLabel.h"

#include "look/Ink.h"
#include "panels/kit/PanelText.h"
#include "settings/controls/SettingsScheme.h"

#include <QPainter>

#include <cmath>

namespace velmora {
namespace {

constexpr PanelFont kFont{.size = 10, .digits = DigitWidth::monospaced};

}  // namespace

CountLabel::CountLabel(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void CountLabel::setText(const QString& text) {
    if (m_text == text) return;
    m_text = text;
    setAccessibleName(text);
    updateGeometry();
    update();
}

QSize CountLabel::sizeHint() const {
    return {static_cast<int>(std::ceil(PanelText::width(kFont, m_text))), PanelText::lineHeight(kFont)};
}

void CountLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PanelText::draw(painter, kFont, m_text, QRectF(rect()), PanelText::Side::trailing,
                    Ink::quaternary(schemeOf(this)));
}

}  // namespace velmora
