#include "settings/sidebars/Level1Row.h"

#include "look/Ink.h"
#include "look/SystemFont.h"
#include "look/Theme.h"
#include "panels/kit/PanelText.h"
#include "settings/controls/FocusRing.h"
#include "settings/sidebars/IconChip.h"
#include "settings/sidebars/SidebarGeometry.h"

#include <QFontMetrics>
#include <QPainter>

#include <cmath>

namespace velmora {
namespace {

constexpr double kCornerRadius = 8;
constexpr float kSelectedCountOpacity = 0.75F;

QFont titleFont() {
    constexpr int kSize = 13;
    return SystemFont::ofPixelSize(kSize, QFont::Medium);
}

constexpr PanelFont kCountFont{.size = 10, .digits = DigitWidth::monospaced};

int countWidth(const QString& count) {
    return count.isEmpty() ? 0 : static_cast<int>(std::ceil(PanelText::width(kCountFont, count)));
}

}  // namespace

Level1Row::Level1Row(SettingsTab section, std::function<void()> action, QWidget* parent)
    : ChoiceButton(parent), m_section(section) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this, [action = std::move(action)] { action(); });
}

void Level1Row::setTitle(const QString& title) {
    m_title = title;
    setAccessibleName(title);
    update();
}

void Level1Row::setCount(const QString& count) {
    m_count = count;
    setAccessibleDescription(count);
    update();
}

QSize Level1Row::sizeHint() const {
    return {QFontMetrics(titleFont()).horizontalAdvance(m_title), SidebarGeometry::kLevel1Height};
}

QSize Level1Row::minimumSizeHint() const {
    return {IconChip::kSide, SidebarGeometry::kLevel1Height};
}

void Level1Row::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF bounds(rect());
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChosen() ? Theme::accent : wash());
    painter.drawRoundedRect(bounds, kCornerRadius, kCornerRadius);

    const SidebarGeometry::Level1 parts = SidebarGeometry::level1(size(), countWidth(m_count));
    IconChip::of(m_section).paint(painter, parts.chip);

    painter.setFont(titleFont());
    painter.setPen(isChosen() ? QColor(Qt::white) : Ink::primary(scheme()));
    painter.drawText(parts.title, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     QFontMetrics(titleFont()).elidedText(m_title, Qt::ElideRight, parts.title.width()));
    PanelText::draw(painter, kCountFont, m_count, parts.count, PanelText::Side::trailing,
                    isChosen() ? QColor::fromRgbF(1, 1, 1, kSelectedCountOpacity) : Ink::secondary(scheme()));

    if (showsFocus()) {
        paintFocusRing(painter, bounds, kCornerRadius, isChosen() ? RingGround::accent : RingGround::field);
    }
}

}  // namespace velmora
