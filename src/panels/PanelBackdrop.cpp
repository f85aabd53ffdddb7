#include "panels/PanelBackdrop.h"

#include "look/Ink.h"
#include "panels/kit/MenuBackdrop.h"

#include <QPaintEvent>
#include <QPainter>

namespace velmora {
namespace {

constexpr double kLineOpacity = 0.16;

}  // namespace

PanelBackdrop::PanelBackdrop(Scheme scheme, Corners corners, QWidget* parent)
    : QWidget(parent), m_scheme(scheme), m_corners(corners) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_OpaquePaintEvent, corners == Corners::square);
    setFocusPolicy(Qt::NoFocus);
}

void PanelBackdrop::setScheme(Scheme scheme) {
    if (m_scheme == scheme) return;
    m_scheme = scheme;
    update();
}

void PanelBackdrop::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const double line = kLine / devicePixelRatioF();
    const QRectF edge = QRectF(rect()).adjusted(line / 2, line / 2, -line / 2, -line / 2);
    if (m_corners == Corners::square) {
        painter.fillRect(event->rect(), MenuBackdrop::surface(m_scheme));
    } else {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(MenuBackdrop::surface(m_scheme));
        painter.drawRoundedRect(QRectF(rect()), kRadius, kRadius);
    }
    painter.setPen(QPen(Ink::primary(m_scheme, kLineOpacity), line));
    painter.setBrush(Qt::NoBrush);
    if (m_corners == Corners::square) {
        painter.drawRect(edge);
    } else {
        painter.drawRoundedRect(edge, kRadius - line / 2, kRadius - line / 2);
    }
}

}  // namespace velmora
