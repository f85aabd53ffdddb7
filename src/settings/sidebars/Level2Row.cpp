#include "settings/sidebars/Level2Row.h"

#include "look/Ink.h"
#include "look/Symbol.h"
#include "look/SystemFont.h"
#include "look/Theme.h"
#include "settings/controls/FocusRing.h"
#include "settings/sidebars/SidebarGeometry.h"

#include <QFontMetrics>
#include <QPainter>

namespace velmora {
namespace {

constexpr double kCornerRadius = 6;
constexpr float kSelectedDotOpacity = 0.9F;

}  // namespace

Level2Row::Level2Row(std::string icon, std::function<void()> action, QWidget* parent)
    : ChoiceButton(parent), m_icon(std::move(icon)) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this, [action = std::move(action)] { action(); });
}

void Level2Row::setLabel(const QString& label) {
    m_label = label;
    setAccessibleName(label);
    update();
}

void Level2Row::setDot(std::optional<QColor> dot) {
    m_dot = dot;
    update();
}

QFont Level2Row::labelFont() const {
    constexpr int kSize = 13;
    return SystemFont::ofPixelSize(kSize, isChosen() ? QFont::DemiBold : QFont::Normal);
}

QSize Level2Row::sizeHint() const {
    return {QFontMetrics(labelFont()).horizontalAdvance(m_label), SidebarGeometry::kLevel2Height};
}

QSize Level2Row::minimumSizeHint() const {
    return {0, SidebarGeometry::kLevel2Height};
}

void Level2Row::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF bounds(rect());
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChosen() ? Theme::accent : wash());
    painter.drawRoundedRect(bounds, kCornerRadius, kCornerRadius);

    const SidebarGeometry::Level2 parts = SidebarGeometry::level2(size());
    Symbol::paint(painter, m_icon, parts.symbol, isChosen() ? QColor(Qt::white) : Theme::accent);
    painter.setFont(labelFont());
    painter.setPen(isChosen() ? QColor(Qt::white) : Ink::primary(scheme()));
    painter.drawText(parts.label, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     QFontMetrics(labelFont()).elidedText(m_label, Qt::ElideRight, parts.label.width()));
    if (m_dot) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(isChosen() ? QColor::fromRgbF(1, 1, 1, kSelectedDotOpacity) : *m_dot);
        painter.drawEllipse(parts.dot);
    }

    if (showsFocus()) {
        paintFocusRing(painter, bounds, kCornerRadius, isChosen() ? RingGround::accent : RingGround::field);
    }
}

}  // namespace velmora
