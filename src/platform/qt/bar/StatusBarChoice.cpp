#include "platform/qt/bar/StatusBarChoice.h"

namespace velmora {
namespace {

StatusBarPlace stripOf(const Session& session) {
    switch (session.windows) {
        case Session::WindowSystem::xwayland:
            // The shell draws its bar below unmanaged windows of X and lets them have their clicks.
            return session.desktop == Session::Desktop::gnome ? StatusBarPlace::topBar : StatusBarPlace::dock;
        case Session::WindowSystem::x11:
        case Session::WindowSystem::native:
        case Session::WindowSystem::offscreen:
            return StatusBarPlace::dock;
        case Session::WindowSystem::wayland:
            return StatusBarPlace::nowhere;
    }
    return StatusBarPlace::nowhere;
}

}  // namespace

BackendPreference backendPreferenceNamed(std::string_view name) {
    if (name == "tray") return BackendPreference::tray;
    if (name == "strip") return BackendPreference::strip;
    return BackendPreference::automatic;
}

InkPreference inkPreferenceNamed(std::string_view name) {
    if (name == "light") return InkPreference::light;
    if (name == "dark") return InkPreference::dark;
    return InkPreference::automatic;
}

StatusBarPlace chooseStatusBar(const Session& session, const std::optional<HostProfile>& host,
                               BackendPreference preference) {
    const StatusBarPlace tray = host ? StatusBarPlace::tray : StatusBarPlace::nowhere;
    const StatusBarPlace strip = stripOf(session);
    switch (preference) {
        case BackendPreference::tray:
            return tray;
        case BackendPreference::strip:
            return strip != StatusBarPlace::nowhere ? strip : tray;
        case BackendPreference::automatic:
            break;
    }
    if (host && host->keepsWidth) return tray;
    // A strip that nobody sees is made only on demand.
    if (strip != StatusBarPlace::nowhere && session.windows != Session::WindowSystem::offscreen) return strip;
    return tray;
}

}  // namespace velmora
