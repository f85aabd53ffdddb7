#include "VirtualDisplay.h"

#include <chrono>
#include <cstdint>
#include <memory>

#include <poll.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

struct Freeing {
    void operator()(void* reply) const { std::free(reply); }
};

}  // namespace

DisplayWatch::DisplayWatch(const VirtualDisplay& display)
    : m_connection(xcb_connect(display.name().c_str(), nullptr)),
      m_root(xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root) {
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &events);
    xcb_flush(m_connection);
}

DisplayWatch::~DisplayWatch() {
    xcb_disconnect(m_connection);
}

template <typename Match>
xcb_window_t DisplayWatch::next(Match match) {
    constexpr int kLimitMs = 10000;
    while (true) {
        while (xcb_generic_event_t* event = xcb_poll_for_event(m_connection)) {
            const xcb_window_t found = match(*event);
            std::free(event);
            if (found != XCB_WINDOW_NONE) return found;
        }
        pollfd descriptor{xcb_get_file_descriptor(m_connection), POLLIN, 0};
        if (::poll(&descriptor, 1, kLimitMs) <= 0) return XCB_WINDOW_NONE;
    }
}

xcb_window_t DisplayWatch::nextShown() {
    return next([](const xcb_generic_event_t& event) -> xcb_window_t {
        if ((event.response_type & 0x7f) != XCB_MAP_NOTIFY) return XCB_WINDOW_NONE;
        return reinterpret_cast<const xcb_map_notify_event_t&>(event).window;
    });
}

bool DisplayWatch::waitUntilHidden(xcb_window_t window) {
    return next([window](const xcb_generic_event_t& event) -> xcb_window_t {
               if ((event.response_type & 0x7f) != XCB_UNMAP_NOTIFY) return XCB_WINDOW_NONE;
               const auto hidden = reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window;
               return hidden == window ? hidden : xcb_window_t{XCB_WINDOW_NONE};
           }) == window;
}

void DisplayWatch::click(xcb_window_t window, int x, int y) {
    xcb_button_press_event_t press{};
    press.response_type = XCB_BUTTON_PRESS;
    press.detail = XCB_BUTTON_INDEX_1;
    press.root = m_root;
    press.event = window;
    press.same_screen = 1;
    const auto asked = xcb_translate_coordinates(m_connection, window, m_root, static_cast<std::int16_t>(x),
                                                 static_cast<std::int16_t>(y));
    const std::unique_ptr<xcb_translate_coordinates_reply_t, Freeing> onRoot(
        xcb_translate_coordinates_reply(m_connection, asked, nullptr));
    if (onRoot) {
        press.root_x = onRoot->dst_x;
        press.root_y = onRoot->dst_y;
    }
    press.event_x = static_cast<std::int16_t>(x);
    press.event_y = static_cast<std::int16_t>(y);
    xcb_button_release_event_t release = press;
    release.response_type = XCB_BUTTON_RELEASE;
    release.state = XCB_BUTTON_MASK_1;
    xcb_send_event(m_connection, 0, window, XCB_EVENT_MASK_BUTTON_PRESS,
                   reinterpret_cast<const char*>(&press));
    xcb_send_event(m_connection, 0, window, XCB_EVENT_MASK_BUTTON_RELEASE,
                   reinterpret_cast<const char*>(&release));
    xcb_flush(m_connection);
}

bool DisplayWatch::waitUntilPainted(xcb_window_t window, int x, int y, std::uint32_t color,
                                    std::uint32_t otherColor) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (std::chrono::steady_clock::now() < deadline) {
        const auto asked =
            xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, static_cast<std::int16_t>(x),
                          static_cast<std::int16_t>(y), 1, 1, ~0U);
        const std::unique_ptr<xcb_get_image_reply_t, Freeing> image(
            xcb_get_image_reply(m_connection, asked, nullptr));
        if (!image || xcb_get_image_data_length(image.get()) < 3) continue;
        const std::uint8_t* const bytes = xcb_get_image_data(image.get());  // Blue first.
        const std::uint32_t shown = bytes[2] * 0x10000U + bytes[1] * 0x100U + bytes[0];
        if (shown == color || shown == otherColor) return true;
    }
    return false;
}

ProgramCopy::ProgramCopy() {
    static int count = 0;
    const fs::path built = fs::read_symlink("/proc/self/exe").parent_path();
    m_home = fs::temp_directory_path() /
             ("velmora-bench-" + std::to_string(::getpid()) + "-" + std::to_string(++count));
    fs::create_directories(m_home / ".config");
    m_path = m_home / ("vb-" + std::to_string(::getpid()) + "-" + std::to_string(count));
    fs::copy_file(built / "velmora", m_path, fs::copy_options::overwrite_existing);
    for (const char* file : {"bundle.json", "nettop"}) {
        fs::copy_file(built / file, m_home / file, fs::copy_options::overwrite_existing);
    }
}

ProgramCopy::~ProgramCopy() {
    std::error_code ignored;
    fs::remove_all(m_home, ignored);
}

void ProgramCopy::prepare(const VirtualDisplay& display) const {
    ::setenv("DISPLAY", display.name().c_str(), 1);
    ::setenv("HOME", m_home.c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", (m_home / ".config").c_str(), 1);
    ::setenv("XDG_RUNTIME_DIR", m_home.c_str(), 1);
    ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
    ::unsetenv("WAYLAND_DISPLAY");
    ::unsetenv("QT_QPA_PLATFORM");
    silence();
}

}  // namespace velmora
