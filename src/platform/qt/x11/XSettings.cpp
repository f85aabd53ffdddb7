#include "platform/qt/x11/XSettings.h"

#include <QGuiApplication>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

#ifdef __linux__
#include <xcb/xcb.h>
#endif

namespace velmora {
namespace {

/// Takes numbers and texts off the front of the bytes. Once they do not suffice, everything is empty.
class SettingReader {
public:
    enum class Order : std::uint8_t { littleEndian, bigEndian };

    explicit SettingReader(std::string_view bytes) : m_rest(bytes) {}

    void setOrder(Order order) { m_order = order; }
    bool isIntact() const { return m_isIntact; }

    std::string_view take(std::size_t count) {
        if (!m_isIntact || count > m_rest.size()) {
            m_isIntact = false;
            return {};
        }
        const std::string_view taken = m_rest.substr(0, count);
        m_rest.remove_prefix(count);
        return taken;
    }
    /// With the bytes that fill it up to a multiple of four.
    std::string_view takePadded(std::size_t count) {
        const std::string_view taken = take(count);
        take((4 - count % 4) % 4);
        return m_isIntact ? taken : std::string_view();
    }
    std::uint32_t takeNumber(std::size_t size) {
        std::uint32_t number = 0;
        const std::string_view bytes = take(size);
        for (std::size_t index = 0; index < bytes.size(); ++index) {
            const std::size_t place = m_order == Order::littleEndian ? index : bytes.size() - 1 - index;
            number |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[index])) << (8 * place);
        }
        return number;
    }

private:
    std::string_view m_rest;
    Order m_order = Order::littleEndian;
    bool m_isIntact = true;
};

constexpr std::uint32_t kInteger = 0;
constexpr std::uint32_t kText = 1;
constexpr std::uint32_t kColor = 2;

}  // namespace

std::optional<std::string> xSettingText(std::string_view bytes, std::string_view name) {
    SettingReader reader(bytes);
    const std::string_view order = reader.takePadded(1);
    if (order != std::string_view("\0", 1) && order != "\1") return std::nullopt;
    reader.setOrder(order == "\1" ? SettingReader::Order::bigEndian : SettingReader::Order::littleEndian);
    reader.takeNumber(4);  // How often the settings have changed.
    const std::uint32_t count = reader.takeNumber(4);
    for (std::uint32_t index = 0; index < count && reader.isIntact(); ++index) {
        const std::uint32_t type = reader.takeNumber(1);
        reader.take(1);
        const std::string_view itsName = reader.takePadded(reader.takeNumber(2));
        reader.takeNumber(4);  // When this one has changed.
        std::string_view text;
        if (type == kText) {
            text = reader.takePadded(reader.takeNumber(4));
        } else if (type == kInteger) {
            reader.take(4);
        } else if (type == kColor) {
            reader.take(8);
        } else {
            return std::nullopt;
        }
        if (reader.isIntact() && type == kText && itsName == name) return std::string(text);
    }
    return std::nullopt;
}

#ifdef __linux__
namespace {

struct Freeing {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using ReplyOf = std::unique_ptr<Reply, Freeing>;

xcb_atom_t atom(xcb_connection_t* server, std::string_view name) {
    const auto cookie = xcb_intern_atom(server, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const ReplyOf<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(server, cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

}  // namespace

std::optional<std::string> currentXSettingText(std::string_view name) {
    const auto* x11 = qApp ? qApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    if (!x11 || !x11->connection()) return std::nullopt;
    xcb_connection_t* const server = x11->connection();
    // Desktops with several screens to a display are long gone; theirs is the first.
    const auto owner = xcb_get_selection_owner(server, atom(server, "_XSETTINGS_S0"));
    const ReplyOf<xcb_get_selection_owner_reply_t> owned(
        xcb_get_selection_owner_reply(server, owner, nullptr));
    if (!owned || owned->owner == XCB_WINDOW_NONE) return std::nullopt;
    constexpr std::uint32_t kMostWords = 64 * 1024;
    const xcb_atom_t property = atom(server, "_XSETTINGS_SETTINGS");
    const auto cookie = xcb_get_property(server, 0, owned->owner, property, property, 0, kMostWords);
    const ReplyOf<xcb_get_property_reply_t> reply(xcb_get_property_reply(server, cookie, nullptr));
    if (!reply || reply->format != 8) return std::nullopt;
    return xSettingText({static_cast<const char*>(xcb_get_property_value(reply.get())),
                         static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))},
                        name);
}
#else
std::optional<std::string> currentXSettingText(std::string_view) {
    return std::nullopt;
}
#endif

}  // namespace velmora
