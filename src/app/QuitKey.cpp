#include "app/QuitKey.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

namespace velmora {
namespace {

/// Menus, panels and the strip of items say of themselves that the program does not live by them.
bool isOrdinary(const QWidget& window) {
    return window.testAttribute(Qt::WA_QuitOnClose);
}

}  // namespace

QuitKey::QuitKey() {
    QCoreApplication::instance()->installEventFilter(this);
}

bool QuitKey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    // A key comes to the native window first, and then to the widget in it that it is for.
    const auto* const widget = qobject_cast<QWidget*>(watched);
    if (!widget || !isOrdinary(*widget->window())) return false;
    // The toolkit's own "quit" key exists on some desktops only.
    const auto& press = static_cast<const QKeyEvent&>(*event);
    const Qt::KeyboardModifiers held = press.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    if (press.key() != Qt::Key_Q || held != Qt::ControlModifier) return false;
    QCoreApplication::quit();
    return true;
}

}  // namespace velmora
