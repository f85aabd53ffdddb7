#include "settings/module/Swatch.h"

#include "look/Ink.h"
#include "look/Theme.h"

#include <QPainter>

#include <cmath>

namespace velmora {
namespace {

constexpr double kDisc = 18;
constexpr double kRing = 2;

/// The centre line of a circle of the given width along the inside of the edge.
QRectF innerLine(const QRectF& bounds, double width) {
    return bounds.adjusted(width / 2, width / 2, -width / 2, -width / 2);
}

}  // namespace

Swatch::Swatch(std::string hex, std::function<void()> action, QWidget* parent)
    : ChoiceButton(parent), m_hex(std::move(hex)) {
    setFixedSize(kSide, kSide);
    connect(this, &QAbstractButton::clicked, this, [action = std::move(action)] { action(); });
    if (!m_hex.empty()) setTitle(QStringLiteral("#") + QString::fromStdString(m_hex));
}

void Swatch::setAutoTitle(const QString& title) {
    if (m_hex.empty()) setTitle(title);
}

void Swatch::setTitle(const QString& title) {
    setToolTip(title);
    setAccessibleName(title);
}

QRectF Swatch::discFrame() {
    constexpr double kInset = (kSide - kDisc) / 2;
    return {kInset, kInset, kDisc, kDisc};
}

bool Swatch::hitButton(const QPoint& point) const {
    // The middle of the pixel decides.
    constexpr double kMiddle = kSide / 2.0;
    return std::hypot(point.x() + 0.5 - kMiddle, point.y() + 0.5 - kMiddle) <= kMiddle;
}

void Swatch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_hex.empty()) {
        paintAuto(painter);
    } else {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(QStringLiteral("#") + QString::fromStdString(m_hex)));
        painter.drawEllipse(discFrame());
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(wash());
    painter.drawEllipse(discFrame());

    painter.setBrush(Qt::NoBrush);
    if (isChosen()) {
        painter.setPen(QPen(Theme::accent, kRing));
        painter.drawEllipse(innerLine(QRectF(rect()), kRing));
    }
    if (showsFocus()) {
        // Within the ring, which belongs to the choice.
        constexpr double kFocusInset = 2.5;
        constexpr double kLine = 1;
        painter.setPen(QPen(Ink::primary(scheme()), kLine));
        painter.drawEllipse(
            innerLine(QRectF(rect()).adjusted(kFocusInset, kFocusInset, -kFocusInset, -kFocusInset), kLine));
    }
}

/// Half light and half dark, so that it reads on either ground.
void Swatch::paintAuto(QPainter& painter) const {
    constexpr double kHalfOpacity = 0.65;
    constexpr double kBorderOpacity = 0.3;
    constexpr double kBorder = 0.5;
    constexpr int kSixteenthsPerDegree = 16;
    painter.setPen(Qt::NoPen);
    painter.setBrush(Ink::windowBackground(scheme()));
    painter.drawEllipse(discFrame());
    painter.setBrush(Ink::primary(scheme(), kHalfOpacity));
    painter.drawPie(discFrame(), -90 * kSixteenthsPerDegree, 180 * kSixteenthsPerDegree);
    painter.setPen(QPen(Ink::primary(scheme(), kBorderOpacity), kBorder));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(innerLine(discFrame(), kBorder));
}

}  // namespace velmora
