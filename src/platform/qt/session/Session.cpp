#include "platform/qt/session/Session.h"

#include "platform/qt/x11/DockProperties.h"

#include <QGuiApplication>
#include <QScreen>

namespace velmora {
namespace {

/// Older servers name their outputs so, newer ones have an extension of that name; between the two only the
/// environment tells.
bool isXwayland() {
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (screen->name().startsWith(QLatin1String("XWAYLAND"))) return true;
    }
    if (DockProperties::serverHasExtension("XWAYLAND")) return true;
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") && qgetenv("XDG_SESSION_TYPE") == "wayland";
}

Session::WindowSystem windowSystem() {
    const QString platform = QGuiApplication::platformName();
    if (platform == QLatin1String("xcb")) {
        return isXwayland() ? Session::WindowSystem::xwayland : Session::WindowSystem::x11;
    }
    if (platform.startsWith(QLatin1String("wayland"))) return Session::WindowSystem::wayland;
    if (platform == QLatin1String("offscreen") || platform.startsWith(QLatin1String("minimal"))) {
        return Session::WindowSystem::offscreen;
    }
    return Session::WindowSystem::native;
}

}  // namespace

Session Session::current() {
    const QByteArray names = qgetenv("XDG_CURRENT_DESKTOP");
    return {windowSystem(), desktopNamed({names.constData(), static_cast<std::size_t>(names.size())})};
}

Session::Desktop Session::desktopNamed(std::string_view names) {
    while (!names.empty()) {
        const std::string_view name = names.substr(0, names.find(':'));
        names.remove_prefix(name.size() == names.size() ? name.size() : name.size() + 1);
        if (name == "GNOME") return Desktop::gnome;
        if (name == "KDE") return Desktop::plasma;
        if (name == "XFCE") return Desktop::xfce;
    }
    return Desktop::other;
}

}  // namespace velmora
