#include "settings/controls/ToggleSwitch.h"

#include "look/Ink.h"
#include "look/Theme.h"
#include "settings/controls/FocusRing.h"

#include <QPainter>

namespace velmora {
namespace {

constexpr int kWidth = 38;
constexpr int kHeight = 22;
constexpr double kRadius = kHeight / 2.0;
constexpr double kKnobInset = 2;
constexpr double kDisabledOpacity = 0.5;

/// Strong enough to be seen on a card, weaker than the accent colour.
QColor offTrack(Scheme scheme) {
    return Ink::primary(scheme, scheme == Scheme::dark ? 0.2 : 0.16);
}

}  // namespace

ToggleSwitch::ToggleSwitch(QWidget* parent) : SettingsButton(parent) {
    setCheckable(true);
    setFixedSize(kWidth, kHeight);
}

QRectF ToggleSwitch::knobFrame(bool on) {
    constexpr double kSide = kHeight - 2 * kKnobInset;
    return {on ? kWidth - kKnobInset - kSide : kKnobInset, kKnobInset, kSide, kSide};
}

QSize ToggleSwitch::sizeHint() const {
    return {kWidth, kHeight};
}

void ToggleSwitch::nextCheckState() {
    if (m_onToggle) m_onToggle(!isOn());
}

void ToggleSwitch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled()) painter.setOpacity(kDisabledOpacity);
    const QRectF bounds(rect());
    painter.setPen(Qt::NoPen);
    for (const QColor& ground : {isOn() ? Theme::accent : offTrack(scheme()), wash()}) {
        painter.setBrush(ground);
        painter.drawRoundedRect(bounds, kRadius, kRadius);
    }
    const QRectF knob = knobFrame(isOn());
    // A soft edge below the knob sets it off a light track.
    painter.setBrush(QColor(0, 0, 0, 36));
    painter.drawEllipse(knob.adjusted(-0.5, 0, 0.5, 1));
    painter.setBrush(Qt::white);
    painter.drawEllipse(knob);
    if (showsFocus()) {
        paintFocusRing(painter, bounds, kRadius, isOn() ? RingGround::accent : RingGround::field);
    }
}

}  // namespace velmora
