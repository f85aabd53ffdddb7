#include "platform/qt/x11/X11WindowBlur.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <string_view>

#ifdef __linux__
#include <xcb/xcb.h>
#endif

namespace velmora {

#ifdef __linux__
namespace {

template <typename Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply* reply) {
    return {reply, &std::free};
}

xcb_atom_t atom(xcb_connection_t* server, std::string_view name) {
    const auto cookie = xcb_intern_atom(server, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const auto reply = owned(xcb_intern_atom_reply(server, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

}  // namespace

X11WindowBlur::X11WindowBlur() {
    const auto* const x11 = qApp ? qApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    m_connection = x11 ? x11->connection() : nullptr;
    if (!m_connection) return;
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    m_region = atom(m_connection, "_KDE_NET_WM_BLUR_BEHIND_REGION");
    m_compositor = atom(m_connection, "_NET_WM_CM_S0");
    // The toolkit already listens to the root window's properties.
    qApp->installNativeEventFilter(this);
}

X11WindowBlur::~X11WindowBlur() {
    if (m_connection && qApp) qApp->removeNativeEventFilter(this);
}

bool X11WindowBlur::isAvailable() const {
    if (!m_connection) return false;
    const auto propertiesAsked = xcb_list_properties(m_connection, m_root);
    const auto ownerAsked = xcb_get_selection_owner(m_connection, m_compositor);
    const auto properties = owned(xcb_list_properties_reply(m_connection, propertiesAsked, nullptr));
    // What a compositor announced stays behind when it dies.
    const auto owner = owned(xcb_get_selection_owner_reply(m_connection, ownerAsked, nullptr));
    if (!properties || !owner || owner->owner == XCB_WINDOW_NONE) return false;
    const xcb_atom_t* const first = xcb_list_properties_atoms(properties.get());
    const int count = xcb_list_properties_atoms_length(properties.get());
    return std::find(first, first + count, m_region) != first + count;
}

void X11WindowBlur::setArea(std::uintptr_t window, const Area& area) {
    if (!m_connection) return;
    const auto id = static_cast<xcb_window_t>(window);
    if (area.width <= 0 || area.height <= 0) {
        // An empty list would mean the whole window.
        xcb_delete_property(m_connection, id, m_region);
    } else {
        const std::array<std::uint32_t, 4> rectangle{
            static_cast<std::uint32_t>(area.x), static_cast<std::uint32_t>(area.y),
            static_cast<std::uint32_t>(area.width), static_cast<std::uint32_t>(area.height)};
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, id, m_region, XCB_ATOM_CARDINAL, 32,
                            static_cast<std::uint32_t>(rectangle.size()), rectangle.data());
    }
    xcb_flush(m_connection);
}

bool X11WindowBlur::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
    if (eventType != "xcb_generic_event_t") return false;
    constexpr std::uint8_t kSentByOthers = 0x80;
    const auto* const event = static_cast<const xcb_generic_event_t*>(message);
    if ((event->response_type & ~kSentByOthers) != XCB_PROPERTY_NOTIFY) return false;
    const auto* const notice = static_cast<const xcb_property_notify_event_t*>(message);
    if (notice->window == m_root && notice->atom == m_region) changed.fire();
    return false;
}

#else

X11WindowBlur::X11WindowBlur() = default;
X11WindowBlur::~X11WindowBlur() = default;
bool X11WindowBlur::isAvailable() const {
    return false;
}
void X11WindowBlur::setArea(std::uintptr_t, const Area&) {}
bool X11WindowBlur::nativeEventFilter(const QByteArray&, void*, qintptr*) {
    return false;
}

#endif

}  // namespace velmora
