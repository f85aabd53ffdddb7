#include "platform/qt/window/Compositing.h"

#include <QGuiApplication>

#include <cstdlib>
#include <memory>
#include <string_view>

#ifdef __linux__
#include <xcb/xcb.h>
#endif

namespace velmora {
namespace {

#ifdef __linux__

struct Freeing {
    void operator()(void* reply) const { std::free(reply); }
};

/// A compositing manager owns the selection of its screen. The toolkit uses the first one.
bool hasCompositingManager() {
    constexpr std::string_view kSelection = "_NET_WM_CM_S0";
    const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t* const server = x11 ? x11->connection() : nullptr;
    if (!server) return false;
    const auto atomAsked = xcb_intern_atom(server, 0, kSelection.size(), kSelection.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, Freeing> atom(
        xcb_intern_atom_reply(server, atomAsked, nullptr));
    if (!atom) return false;
    const auto ownerAsked = xcb_get_selection_owner(server, atom->atom);
    const std::unique_ptr<xcb_get_selection_owner_reply_t, Freeing> owner(
        xcb_get_selection_owner_reply(server, ownerAsked, nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

#else

bool hasCompositingManager() {
    return false;
}

#endif

}  // namespace

bool isComposited(Session::WindowSystem windows) {
    return windows != Session::WindowSystem::x11 || hasCompositingManager();
}

}  // namespace velmora
