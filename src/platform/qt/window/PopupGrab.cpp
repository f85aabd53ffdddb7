#include "platform/qt/window/PopupGrab.h"

#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <chrono>

namespace velmora::PopupGrab {

void keepAsking(QWidget& popup) {
    constexpr int kTimes = 10;
    constexpr std::chrono::milliseconds kInterval{150};
    auto* const timer = new QTimer(&popup);
    timer->setInterval(kInterval);
    QObject::connect(timer, &QTimer::timeout, &popup, [timer, &popup, left = kTimes]() mutable {
        QWindow* const window = popup.windowHandle();
        if (window && popup.isVisible()) {
            window->setMouseGrabEnabled(true);
            window->setKeyboardGrabEnabled(true);
        }
        if (--left == 0 || !popup.isVisible()) timer->deleteLater();
    });
    timer->start();
}

}  // namespace velmora::PopupGrab
