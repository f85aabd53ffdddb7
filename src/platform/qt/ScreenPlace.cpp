#include "platform/qt/ScreenPlace.h"

#include <QGuiApplication>
#include <QScreen>

namespace velmora {
namespace {

DesktopRect desktopRect(const QRect& rect) {
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

}  // namespace

ScreenPlace ScreenPlace::under(const Anchor& anchor) {
    const QScreen* screen =
        QGuiApplication::screenAt({anchor.x + anchor.width / 2, anchor.y + anchor.height / 2});
    if (!screen) screen = QGuiApplication::primaryScreen();
    if (!screen) return {};
    return {desktopRect(screen->geometry()), desktopRect(screen->availableGeometry())};
}

}  // namespace velmora
