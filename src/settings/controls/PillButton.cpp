#include "settings/controls/PillButton.h"

#include "look/Ink.h"
#include "look/SystemFont.h"
#include "look/Theme.h"
#include "settings/controls/FocusRing.h"
#include "settings/controls/PillTheme.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace velmora {
namespace {

constexpr double kCornerRadius = 8;
constexpr int kAddedWidth = 24;

QFont titleFont() {
    return SystemFont::ofPixelSize(11, QFont::DemiBold);
}

}  // namespace

PillButton::PillButton(const QString& title, PillFill fill, std::function<void()> action, QWidget* parent)
    : SettingsButton(parent), m_fill(fill), m_titleText(title) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    setAccessibleName(title);
    connect(this, &QAbstractButton::clicked, this, std::move(action));
}

void PillButton::setButtonTitle(const QString& title) {
    if (title == m_titleText) return;
    m_titleText = title;
    setAccessibleName(title);
    updateGeometry();
    update();
}

QSize PillButton::sizeHint() const {
    const QFontMetricsF metrics(titleFont());
    return {static_cast<int>(std::ceil(metrics.horizontalAdvance(m_titleText))) + kAddedWidth,
            static_cast<int>(std::ceil(metrics.height()))};
}

void PillButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF bounds(rect());
    painter.setPen(Qt::NoPen);
    for (const QColor& ground : {filled() ? Theme::accent : PillTheme::field(scheme()), wash()}) {
        painter.setBrush(ground);
        painter.drawRoundedRect(bounds, kCornerRadius, kCornerRadius);
    }
    // A filled button stands out by itself and has no border.
    if (!filled()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(PillTheme::fieldBorder(scheme()));
        painter.drawRoundedRect(bounds.adjusted(0.5, 0.5, -0.5, -0.5), kCornerRadius - 0.5,
                                kCornerRadius - 0.5);
    }
    const QFont font = titleFont();
    painter.setFont(font);
    painter.setPen(filled() ? QColor(Qt::white) : Ink::primary(scheme()));
    painter.drawText(
        bounds, Qt::AlignCenter | Qt::TextSingleLine,
        QFontMetricsF(font).elidedText(m_titleText, Qt::ElideRight, bounds.width(), Qt::TextSingleLine));
    if (showsFocus()) {
        paintFocusRing(painter, bounds, kCornerRadius, filled() ? RingGround::accent : RingGround::field);
    }
}

}  // namespace velmora
