#include "platform/qt/window/ScreenPlace.h"

#include <QGuiApplication>
#include <QScreen>

namespace velmora {
namespace {

DesktopRect desktopRect(const QRect& rect) {
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

ScreenPlace placeOf(const QScreen& screen) {
    return {desktopRect(screen.geometry()), desktopRect(screen.availableGeometry())};
}

}  // namespace

std::vector<ScreenPlace> ScreenPlace::all() {
    std::vector<ScreenPlace> places;
    // The primary one is first in the toolkit's list too.
    for (const QScreen* screen : QGuiApplication::screens()) places.push_back(placeOf(*screen));
    return places;
}

ScreenPlace ScreenPlace::under(const Anchor& anchor) {
    const QScreen* screen =
        QGuiApplication::screenAt({anchor.x + anchor.width / 2, anchor.y + anchor.height / 2});
    if (!screen) screen = QGuiApplication::primaryScreen();
    return screen ? placeOf(*screen) : ScreenPlace();
}

}  // namespace velmora
