#include "app/QuitKey.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace velmora {

QuitKey::QuitKey() {
    QCoreApplication::instance()->installEventFilter(this);
}

bool QuitKey::eventFilter(QObject*, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    // The toolkit's own "quit" key exists on some desktops only.
    const auto& press = static_cast<const QKeyEvent&>(*event);
    const Qt::KeyboardModifiers held = press.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    if (press.key() != Qt::Key_Q || held != Qt::ControlModifier) return false;
    QCoreApplication::quit();
    return true;
}

}  // namespace velmora
