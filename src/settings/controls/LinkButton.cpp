#include "settings/controls/LinkButton.h"

#include "look/SystemFont.h"
#include "look/Theme.h"
#include "settings/controls/FocusRing.h"
#include "settings/controls/WrappedText.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace velmora {
namespace {

constexpr int kSideRoom = 4;
constexpr int kVerticalRoom = 2;
constexpr double kRingRadius = 5;

QFont titleFont(bool underlined) {
    QFont font = SystemFont::ofPixelSize(12, QFont::Normal);
    font.setUnderline(underlined);
    return font;
}

}  // namespace

LinkButton::LinkButton(const QString& title, std::function<void()> action, QWidget* parent)
    : SettingsButton(parent) {
    setText(title);
    setAccessibleName(title);
    setCursor(Qt::PointingHandCursor);
    connect(this, &QAbstractButton::clicked, this, std::move(action));
}

QSize LinkButton::sizeHint() const {
    const QFont font = titleFont(false);
    return {WrappedText::naturalWidth(text(), font) + 2 * kSideRoom,
            static_cast<int>(std::ceil(QFontMetricsF(font).height())) + 2 * kVerticalRoom};
}

void LinkButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QFont font = titleFont(isHovered() || isDown());
    const QRectF place = QRectF(rect()).adjusted(kSideRoom, 0, -kSideRoom, 0);
    painter.setFont(font);
    painter.setPen(isDown() ? Theme::accent.darker(120) : Theme::accent);
    painter.drawText(
        place, Qt::AlignCenter | Qt::TextSingleLine,
        QFontMetricsF(font).elidedText(text(), Qt::ElideRight, place.width(), Qt::TextSingleLine));
    if (showsFocus()) paintFocusRing(painter, QRectF(rect()), kRingRadius, RingGround::field);
}

}  // namespace velmora
