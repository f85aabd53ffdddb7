#include "app/SessionCheck.h"

#include "platform/linux/files/FileDescriptor.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>

#include <sys/socket.h>
#include <sys/un.h>

#include <xcb/xcb.h>

namespace velmora::SessionCheck {
namespace {

std::string_view variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// Somebody listens on the compositor's socket.
bool waylandServerAnswers() {
    // A descriptor that was handed over is connected already.
    if (!variable("WAYLAND_SOCKET").empty()) return true;
    std::string path(variable("WAYLAND_DISPLAY"));
    if (!path.starts_with('/')) path = std::string(variable("XDG_RUNTIME_DIR")) + "/" + path;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) return false;
    std::ranges::copy(path, address.sun_path);
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    return socket &&
           ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

std::optional<std::string> problemOf(const char* display, bool answers) {
    if (answers) return std::nullopt;
    return "the display " + std::string(variable(display)) + " does not answer";
}

}  // namespace

void chooseWindowingBackend() {
    if (!variable("QT_QPA_PLATFORM").empty() || variable("WAYLAND_DISPLAY").empty()) return;
    // The toolkit would look for an X server too, and end the process where it finds none.
    setenv("QT_QPA_PLATFORM", variable("DISPLAY").empty() ? "wayland" : "xcb", 1);
}

DisplayCheck::DisplayCheck() : m_problem(ask()) {}

void DisplayCheck::Disconnect::operator()(xcb_connection_t* connection) const {
    xcb_disconnect(connection);
}

bool DisplayCheck::xServerAnswers() {
    m_connection.reset(xcb_connect(nullptr, nullptr));
    return xcb_connection_has_error(m_connection.get()) == 0;
}

std::optional<std::string> DisplayCheck::ask() {
    const std::string_view backend = variable("QT_QPA_PLATFORM");
    if (backend.starts_with("wayland")) {
        if (variable("WAYLAND_DISPLAY").empty()) return "there is no display: WAYLAND_DISPLAY is not set";
        return problemOf("WAYLAND_DISPLAY", waylandServerAnswers());
    }
    if (!backend.empty() && !backend.starts_with("xcb")) return std::nullopt;
    if (variable("DISPLAY").empty()) {
        return backend.empty() ? "there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set"
                               : "there is no display: DISPLAY is not set";
    }
    return problemOf("DISPLAY", xServerAnswers());
}

}  // namespace velmora::SessionCheck
