#include "platform/qt/window/OutsideClickShield.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

namespace velmora {

OutsideClickShield::OutsideClickShield(const QRegion& holes, std::function<void(QPoint at)> pressed)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint |
                           Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus),
      m_pressed(std::move(pressed)) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    QRect desktop;
    for (const QScreen* screen : QGuiApplication::screens()) desktop |= screen->geometry();
    setGeometry(desktop);
    setHoles(holes);
}

void OutsideClickShield::setHoles(const QRegion& holes) {
    setMask(QRegion(rect()) - holes.translated(-pos()));
}

void OutsideClickShield::mousePressEvent(QMouseEvent* event) {
    const std::function<void(QPoint)> pressed = m_pressed;
    if (pressed) pressed(event->globalPosition().toPoint());
}

void OutsideClickShield::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(event->rect(), Qt::transparent);
}

}  // namespace velmora
