#include "settings/controls/SettingsButton.h"

#include "look/Ink.h"
#include "settings/controls/FocusRing.h"
#include "settings/controls/SettingsScheme.h"

#include <QFocusEvent>
#include <QKeyEvent>

namespace velmora {

SettingsButton::SettingsButton(QWidget* parent) : QAbstractButton(parent) {
    // A press with the pointer leaves the focus where it is; the keyboard reaches every button.
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
}

void SettingsButton::focusInEvent(QFocusEvent* event) {
    m_showsFocus = focusShows(event->reason(), m_showsFocus);
    QAbstractButton::focusInEvent(event);
    update();
}

void SettingsButton::focusOutEvent(QFocusEvent* event) {
    // The focus comes back from a menu and from another window, and looks as before.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) {
        m_showsFocus = false;
    }
    QAbstractButton::focusOutEvent(event);
    update();
}

void SettingsButton::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter) return QAbstractButton::keyPressEvent(event);
    if (!event->isAutoRepeat()) click();
}

Scheme SettingsButton::scheme() const {
    return schemeOf(this);
}

bool SettingsButton::isHovered() const {
    return isEnabled() && underMouse();
}

QColor SettingsButton::wash() const {
    constexpr double kHovered = 0.05;
    constexpr double kPressed = 0.11;
    if (isDown()) return Ink::primary(scheme(), kPressed);
    return isHovered() ? Ink::primary(scheme(), kHovered) : QColor(Qt::transparent);
}

}  // namespace velmora
