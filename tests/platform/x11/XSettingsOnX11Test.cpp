#include "platform/qt/x11/XSettings.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include <xcb/xcb.h>

namespace velmora {
namespace {

/// What a desktop's settings daemon does, over a connection of its own.
class SettingsManager {
public:
    SettingsManager() : m_server(xcb_connect(nullptr, nullptr)), m_window(xcb_generate_id(m_server)) {
        const xcb_screen_t* const screen = xcb_setup_roots_iterator(xcb_get_setup(m_server)).data;
        xcb_create_window(m_server, XCB_COPY_FROM_PARENT, m_window, screen->root, -1, -1, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_set_selection_owner(m_server, m_window, atom("_XSETTINGS_S0"), XCB_CURRENT_TIME);
    }
    ~SettingsManager() { xcb_disconnect(m_server); }
    SettingsManager(const SettingsManager&) = delete;
    SettingsManager& operator=(const SettingsManager&) = delete;

    void publish(std::string_view bytes) {
        const xcb_atom_t property = atom("_XSETTINGS_SETTINGS");
        const auto cookie =
            xcb_change_property_checked(m_server, XCB_PROP_MODE_REPLACE, m_window, property, property, 8,
                                        static_cast<std::uint32_t>(bytes.size()), bytes.data());
        EXPECT_EQ(xcb_request_check(m_server, cookie), nullptr);
    }

private:
    xcb_atom_t atom(std::string_view name) {
        const auto cookie =
            xcb_intern_atom(m_server, 0, static_cast<std::uint16_t>(name.size()), name.data());
        const std::unique_ptr<xcb_intern_atom_reply_t, void (*)(void*)> reply(
            xcb_intern_atom_reply(m_server, cookie, nullptr), std::free);
        return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    }

    xcb_connection_t* m_server;
    xcb_window_t m_window;
};

/// One setting, "Net/IconThemeName" = "Papirus", in little-endian bytes.
constexpr std::string_view kPapirus(
    "\0\0\0\0\1\0\0\0\1\0\0\0"
    "\1\0\21\0Net/IconThemeName\0\0\0\1\0\0\0"
    "\7\0\0\0Papirus\0",
    52);

TEST(XSettingsOnX11, WithoutAManagerThereAreNone) {
    EXPECT_EQ(currentXSettingText("Net/IconThemeName"), std::nullopt);
}

TEST(XSettingsOnX11, PublishedTextIsRead) {
    SettingsManager manager;
    manager.publish(kPapirus);
    EXPECT_EQ(currentXSettingText("Net/IconThemeName"), "Papirus");
    EXPECT_EQ(currentXSettingText("Net/ThemeName"), std::nullopt);
}

TEST(XSettingsOnX11, ManagerThatPublishesNothingYetHasNone) {
    SettingsManager manager;
    manager.publish("");
    EXPECT_EQ(currentXSettingText("Net/IconThemeName"), std::nullopt);
}

}  // namespace
}  // namespace velmora
