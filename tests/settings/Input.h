#pragma once

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPoint>
#include <QString>
#include <QWidget>

/// What a user does to a window, delivered to the widget that the toolkit would deliver it to.
namespace velmora::Input {

inline void mouse(QWidget& window, QEvent::Type type, QPoint at) {
    QWidget* const child = window.childAt(at);
    QWidget* const target = child ? child : &window;
    const QPointF local = target->mapFrom(&window, at);
    const bool down = type == QEvent::MouseButtonPress;
    QMouseEvent event(type, local, QPointF(window.mapToGlobal(at)), Qt::LeftButton,
                      down ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

inline void click(QWidget& window, QPoint at) {
    mouse(window, QEvent::MouseButtonPress, at);
    mouse(window, QEvent::MouseButtonRelease, at);
}

/// A click into the middle of something inside a window.
inline void click(QWidget& widget) {
    QWidget& window = *widget.window();
    click(window, widget.mapTo(&window, widget.rect().center()));
}

inline void key(QWidget& target, Qt::Key key, const QString& text = QString()) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QApplication::sendEvent(&target, &event);
    }
}

}  // namespace velmora::Input
