#include "panels/kit/FooterButton.h"

#include "look/ApplicationIcon.h"
#include "look/Ink.h"
#include "look/Symbol.h"
#include "look/Theme.h"
#include "panels/kit/PanelText.h"

#include <QKeyEvent>
#include <QPainter>

namespace velmora {
namespace {

constexpr double kSymbol = 13;
constexpr double kAppIcon = 15;
constexpr double kHoverOpacity = 0.1;
constexpr double kPressedOpacity = 0.18;
constexpr double kFocusLine = 2;

QRectF middleOf(const QRectF& box, double side) {
    return {box.center().x() - side / 2, box.center().y() - side / 2, side, side};
}

}  // namespace

FooterButton::FooterButton(const FooterShortcut& shortcut, Scheme scheme, QWidget* parent)
    : QAbstractButton(parent), m_scheme(scheme) {
    // A click leaves no ring behind: it closes the panel.
    setFocusPolicy(Qt::TabFocus);
    setShortcut(shortcut);
    connect(this, &QAbstractButton::clicked, this, [this] {
        // The action may close the panel, and this button with it.
        const std::function<void()> action = m_shortcut.action;
        if (action) action();
    });
}

void FooterButton::setShortcut(const FooterShortcut& shortcut) {
    const bool looksTheSame = m_shortcut.symbol == shortcut.symbol && m_shortcut.accent == shortcut.accent;
    m_shortcut = shortcut;
    const QString help = PanelText::plain(shortcut.help);
    if (toolTip() != help) setToolTip(help);
    if (accessibleName() != help) setAccessibleName(help);
    if (!looksTheSame) update();
}

void FooterButton::setScheme(Scheme scheme) {
    if (m_scheme == scheme) return;
    m_scheme = scheme;
    update();
}

void FooterButton::setHovered(bool isHovered) {
    if (m_isHovered == isHovered) return;
    m_isHovered = isHovered;
    update();
}

void FooterButton::enterEvent(QEnterEvent*) {
    if (pointerCrossed) pointerCrossed(true);
}

void FooterButton::leaveEvent(QEvent*) {
    if (pointerCrossed) pointerCrossed(false);
}

void FooterButton::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn) {
        QAbstractButton::keyPressEvent(event);
    } else if (!event->isAutoRepeat()) {
        click();
    }
}

void FooterButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box(rect());
    if (m_isHovered || isDown()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(Ink::primary(m_scheme, isDown() ? kPressedOpacity : kHoverOpacity));
        painter.drawEllipse(box);
    }
    if (hasFocus()) {
        painter.setPen(QPen(Theme::accent, kFocusLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(box.adjusted(kFocusLine / 2, kFocusLine / 2, -kFocusLine / 2, -kFocusLine / 2));
    }
    if (m_shortcut.accent) {
        ApplicationIcon::paintArtwork(painter, middleOf(box, kAppIcon));
    } else {
        Symbol::paint(painter, m_shortcut.symbol, middleOf(box, kSymbol), Ink::secondary(m_scheme));
    }
}

}  // namespace velmora
