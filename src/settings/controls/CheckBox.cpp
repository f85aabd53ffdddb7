#include "settings/controls/CheckBox.h"

#include "look/Ink.h"
#include "look/Symbol.h"
#include "look/SystemFont.h"
#include "look/Theme.h"
#include "settings/controls/FocusRing.h"
#include "settings/controls/PillTheme.h"
#include "settings/controls/WrappedText.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr double kBoxSide = 16;
constexpr double kBoxRadius = 4.5;
constexpr double kMarkInset = 1;
constexpr double kMarkInsetInRing = 2.5;
constexpr int kLabelLeading = 23;
/// Room for a few letters in a line, however narrow the box's place is.
constexpr int kLeastLabel = 40;

}  // namespace

CheckBox::CheckBox(int labelSize, QWidget* parent) : SettingsButton(parent), m_labelSize(labelSize) {
    setCheckable(true);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void CheckBox::setLabel(const QString& label) {
    if (label == text()) return;
    setText(QString(label));
    setAccessibleName(label);
}

double CheckBox::lineHeight() const {
    return SystemFont::lineExtent(SystemFont::ofPixelSize(m_labelSize, QFont::Normal)).height();
}

QRectF CheckBox::boxFrame() const {
    return {0, std::max(std::round((lineHeight() - kBoxSide) / 2), 0.0), kBoxSide, kBoxSide};
}

QSize CheckBox::sizeHint() const {
    const QFont font = SystemFont::ofPixelSize(m_labelSize, QFont::Normal);
    const int width = kLabelLeading + WrappedText::naturalWidth(text(), font);
    return {width, heightForWidth(width)};
}

QSize CheckBox::minimumSizeHint() const {
    return {kLabelLeading + kLeastLabel, static_cast<int>(std::ceil(std::max(lineHeight(), kBoxSide)))};
}

int CheckBox::heightForWidth(int width) const {
    const QFont font = SystemFont::ofPixelSize(m_labelSize, QFont::Normal);
    const double label =
        WrappedText::size(text(), font, std::max(width - kLabelLeading, kLeastLabel)).height();
    return static_cast<int>(std::ceil(std::max(label, kBoxSide)));
}

bool CheckBox::hitButton(const QPoint& point) const {
    // Not the empty rest of a wide cell.
    return rect().contains(point) && point.x() < sizeHint().width();
}

void CheckBox::nextCheckState() {
    if (m_onToggle) m_onToggle(!isOn());
}

void CheckBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box = boxFrame();
    painter.setPen(Qt::NoPen);
    for (const QColor& ground : {isOn() ? Theme::accent : PillTheme::field(scheme()), wash()}) {
        painter.setBrush(ground);
        painter.drawRoundedRect(box, kBoxRadius, kBoxRadius);
    }
    if (isOn()) {
        const double inset = showsFocus() ? kMarkInsetInRing : kMarkInset;
        Symbol::paint(painter, "checkmark", box.adjusted(inset, inset, -inset, -inset), Qt::white);
    } else {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(Ink::primary(scheme(), 0.28));
        painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), kBoxRadius - 0.5, kBoxRadius - 0.5);
    }
    const double top = std::max(std::round((kBoxSide - lineHeight()) / 2), 0.0);
    WrappedText::draw(painter, text(), SystemFont::ofPixelSize(m_labelSize, QFont::Normal),
                      Ink::primary(scheme()),
                      QRectF(kLabelLeading, top, width() - kLabelLeading, height() - top));
    if (showsFocus()) {
        paintFocusRing(painter, box, kBoxRadius, isOn() ? RingGround::accent : RingGround::field);
    }
}

}  // namespace velmora
