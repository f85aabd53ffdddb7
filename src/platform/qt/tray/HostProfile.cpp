#include "platform/qt/tray/HostProfile.h"

namespace velmora {

HostProfile HostProfile::forProcess(std::string_view comm) {
    HostProfile profile;
    if (comm == "kded5" || comm == "kded6") {
        profile.order = Order::title;
    } else if (comm == "lxqt-panel") {
        profile.order = Order::registration;
    } else if (comm == "xfce4-panel" ||
               (comm.starts_with("panel-") && comm.find("-systra") != std::string_view::npos)) {
        // The plugin's process is "panel-N-systray"; a number of two digits costs the last letter.
        profile.order = Order::front;
        profile.remembersPlaces = true;
    } else if (comm == "gnome-shell") {
        profile.order = Order::front;
        profile.itemNeedsMenu = true;
        profile.showsLabel = true;
    } else if (comm == "xapp-sn-watcher") {
        profile.keepsWidth = true;
        profile.order = Order::title;
    } else if (comm == "waybar" || comm == ".waybar-wrapped") {
        profile.keepsWidth = true;
        profile.order = Order::registration;
        profile.clickPointMayBeLocal = true;
    } else if (comm == "notification-ar") {
        profile.keepsWidth = true;
        profile.order = Order::id;
    }
    return profile;
}

}  // namespace velmora
