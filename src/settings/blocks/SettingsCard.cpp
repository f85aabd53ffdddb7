#include "settings/blocks/SettingsCard.h"

#include "look/Ink.h"
#include "settings/controls/SettingsScheme.h"

#include <QGraphicsOpacityEffect>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace velmora {
namespace {

constexpr double kCornerRadius = 12;
constexpr double kFillOpacity = 0.055;
constexpr double kBorderOpacity = 0.07;
constexpr double kBorderWidth = 0.5;

}  // namespace

SettingsCard::SettingsCard(QWidget* parent) : QWidget(parent), m_stack(new QVBoxLayout(this)) {
    m_stack->setContentsMargins(0, 0, 0, 0);
    m_stack->setSpacing(0);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void SettingsCard::add(QWidget* block) {
    m_stack->addWidget(block);
}

void SettingsCard::setOpacity(double opacity) {
    if (opacity == m_opacity) return;
    m_opacity = opacity;
    if (opacity >= 1) return setGraphicsEffect(nullptr);
    auto* const effect = new QGraphicsOpacityEffect(this);
    effect->setOpacity(opacity);
    setGraphicsEffect(effect);
}

void SettingsCard::paintEvent(QPaintEvent*) {
    const Scheme scheme = schemeOf(this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Ink::primary(scheme, kFillOpacity));
    painter.drawRoundedRect(QRectF(rect()), kCornerRadius, kCornerRadius);
    // Less than a pixel would fade; the line is never thinner than one.
    const double width = std::max(kBorderWidth, 1 / devicePixelRatioF());
    painter.setPen(QPen(Ink::primary(scheme, kBorderOpacity), width));
    painter.setBrush(Qt::NoBrush);
    const double inset = width / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), kCornerRadius - inset,
                            kCornerRadius - inset);
}

}  // namespace velmora
