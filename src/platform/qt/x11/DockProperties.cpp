#include "platform/qt/x11/DockProperties.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

#ifdef __linux__
#include <xcb/xcb.h>
#endif

namespace velmora {

#ifdef __linux__
namespace {

struct Freeing {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using ReplyOf = std::unique_ptr<Reply, Freeing>;

xcb_connection_t* connection() {
    if (!qApp) return nullptr;
    const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

/// All at once, so that the answers take one round trip.
template <std::size_t count>
std::array<xcb_atom_t, count> atoms(xcb_connection_t* server,
                                    const std::array<std::string_view, count>& names) {
    std::array<xcb_intern_atom_cookie_t, count> cookies{};
    for (std::size_t index = 0; index < count; ++index) {
        cookies[index] =
            xcb_intern_atom(server, 0, static_cast<std::uint16_t>(names[index].size()), names[index].data());
    }
    std::array<xcb_atom_t, count> found{};
    for (std::size_t index = 0; index < count; ++index) {
        const ReplyOf<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(server, cookies[index], nullptr));
        if (reply) found[index] = reply->atom;
    }
    return found;
}

/// The 32-bit values of a property; empty if it is missing or of another type.
std::vector<std::uint32_t> propertyValues(xcb_connection_t* server, xcb_window_t window, xcb_atom_t property,
                                          xcb_atom_t type) {
    constexpr std::uint32_t kMost = 4096;
    const auto cookie = xcb_get_property(server, 0, window, property, type, 0, kMost);
    const ReplyOf<xcb_get_property_reply_t> reply(xcb_get_property_reply(server, cookie, nullptr));
    if (!reply || reply->format != 32) return {};
    std::vector<std::uint32_t> values(static_cast<std::size_t>(xcb_get_property_value_length(reply.get())) /
                                      sizeof(std::uint32_t));
    if (!values.empty()) {
        std::memcpy(values.data(), xcb_get_property_value(reply.get()),
                    values.size() * sizeof(std::uint32_t));
    }
    return values;
}

xcb_window_t rootWindow(xcb_connection_t* server) {
    return xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
}

}  // namespace

DockProperties::DockProperties(WId window)
    : m_connection(connection()), m_window(static_cast<std::uint32_t>(window)) {
    if (!m_connection) return;
    const auto found = atoms<4>(m_connection, {"_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK",
                                               "_NET_WM_STRUT", "_NET_WM_STRUT_PARTIAL"});
    m_windowType = found[0];
    m_dock = found[1];
    m_strut = found[2];
    m_strutPartial = found[3];
}

void DockProperties::declareDock() {
    write(m_windowType, XCB_ATOM_ATOM, &m_dock, 1);
}

void DockProperties::setStrut(const Strut& strut) {
    // Left, right, top, bottom, then the begin and end of each in this order.
    const std::array<std::uint32_t, 12> partial{0, 0, strut.top,    0,          0, 0,
                                                0, 0, strut.startX, strut.endX, 0, 0};
    write(m_strutPartial, XCB_ATOM_CARDINAL, partial.data(), 12);
    write(m_strut, XCB_ATOM_CARDINAL, partial.data(), 4);
}

void DockProperties::write(std::uint32_t property, std::uint32_t type, const std::uint32_t* values,
                           std::uint32_t count) {
    if (!m_connection) return;
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, property, type, 32, count, values);
    xcb_flush(m_connection);
}

std::vector<DockProperties::Dock> DockProperties::allDocks() {
    xcb_connection_t* const server = connection();
    if (!server) return {};
    const auto found =
        atoms<3>(server, {"_NET_CLIENT_LIST", "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK"});
    const xcb_window_t root = rootWindow(server);
    std::vector<Dock> docks;
    for (const xcb_window_t window : propertyValues(server, root, found[0], XCB_ATOM_WINDOW)) {
        const auto types = propertyValues(server, window, found[1], XCB_ATOM_ATOM);
        if (std::ranges::find(types, found[2]) == types.end()) continue;
        const ReplyOf<xcb_get_geometry_reply_t> size(
            xcb_get_geometry_reply(server, xcb_get_geometry(server, window), nullptr));
        const ReplyOf<xcb_translate_coordinates_reply_t> place(xcb_translate_coordinates_reply(
            server, xcb_translate_coordinates(server, window, root, 0, 0), nullptr));
        if (!size || !place) continue;
        docks.push_back({window, QRect(place->dst_x, place->dst_y, size->width, size->height)});
    }
    return docks;
}

bool DockProperties::serverHasExtension(const char* name) {
    xcb_connection_t* const server = connection();
    if (!server) return false;
    const auto cookie = xcb_query_extension(server, static_cast<std::uint16_t>(std::strlen(name)), name);
    const ReplyOf<xcb_query_extension_reply_t> reply(xcb_query_extension_reply(server, cookie, nullptr));
    return reply && reply->present;
}

#else

DockProperties::DockProperties(WId) {}
void DockProperties::declareDock() {}
void DockProperties::setStrut(const Strut&) {}
void DockProperties::write(std::uint32_t, std::uint32_t, const std::uint32_t*, std::uint32_t) {}
std::vector<DockProperties::Dock> DockProperties::allDocks() {
    return {};
}
bool DockProperties::serverHasExtension(const char*) {
    return false;
}

#endif

}  // namespace velmora
