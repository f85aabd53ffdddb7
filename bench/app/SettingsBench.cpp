// From the desktop's request for the settings to the painted window: the real program on a virtual display
// with a session bus of its own, asked and watched from outside. It is opened anew each time.

#include "VirtualDisplay.h"

#include <benchmark/benchmark.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

#include <array>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>

namespace velmora {
namespace {

constexpr std::uint32_t kDarkGround = 0x1e1e20;
constexpr std::uint32_t kLightGround = 0xf6f6f7;
/// In the ground of the page, above its heading.
constexpr int kGroundX = 700;
constexpr int kGroundY = 8;

/// A session bus that ends with this object.
class SessionBus {
public:
    SessionBus() : m_daemon(start()) {
        std::array<char, 256> address{};
        const ssize_t length = ::read(m_pipe[0], address.data(), address.size() - 1);
        if (length > 1) m_address.assign(address.data(), static_cast<std::size_t>(length) - 1);
    }
    const std::string& address() const { return m_address; }

private:
    Child start() {
        if (::pipe(m_pipe.data()) != 0) std::abort();
        return Child("dbus-daemon", {"--session", "--nofork", "--nopidfile", "--print-address=3"}, [this] {
            ::dup2(m_pipe[1], 3);
            silence();
        });
    }

    std::array<int, 2> m_pipe{-1, -1};
    Child m_daemon;
    std::string m_address;
};

/// Closes windows as a window manager does.
class WindowCloser {
public:
    explicit WindowCloser(const VirtualDisplay& display)
        : m_server(xcb_connect(display.name().c_str(), nullptr)) {}
    WindowCloser(const WindowCloser&) = delete;
    WindowCloser& operator=(const WindowCloser&) = delete;
    ~WindowCloser() { xcb_disconnect(m_server); }

    void close(xcb_window_t window) {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = window;
        message.type = atom("WM_PROTOCOLS");
        message.data.data32[0] = atom("WM_DELETE_WINDOW");
        xcb_send_event(m_server, 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&message));
        xcb_flush(m_server);
    }

private:
    xcb_atom_t atom(const char* name) {
        const auto cookie = xcb_intern_atom(m_server, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
        const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
            xcb_intern_atom_reply(m_server, cookie, nullptr), &std::free);
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }

    xcb_connection_t* m_server;
};

void askForSettings(QDBusConnection& bus) {
    QDBusMessage call = QDBusMessage::createMethodCall("com.torvane.Velmora", "/com/torvane/Velmora",
                                                       "org.freedesktop.Application", "Activate");
    call.setArguments({QVariantMap()});
    bus.call(call, QDBus::NoBlock);
}

void requestToSettings(benchmark::State& state) {
    using Clock = std::chrono::steady_clock;
    const ProgramCopy program;
    const VirtualDisplay display;
    const SessionBus session;
    DisplayWatch watch(display);
    WindowCloser closer(display);
    const Child child(program.path().c_str(), {}, [&] {
        program.prepare(display);
        ::setenv("DBUS_SESSION_BUS_ADDRESS", session.address().c_str(), 1);
    });
    watch.nextShown();  // The items.

    const QString name = "settings-bench";
    QDBusConnection bus = QDBusConnection::connectToBus(QString::fromStdString(session.address()), name);
    const auto open = [&]() -> double {
        const auto began = Clock::now();
        askForSettings(bus);
        const xcb_window_t window = watch.nextShown();
        if (window == XCB_WINDOW_NONE ||
            !watch.waitUntilPainted(window, kGroundX, kGroundY, kDarkGround, kLightGround)) {
            state.SkipWithError("no window opened");
            return 0;
        }
        const double took = std::chrono::duration<double>(Clock::now() - began).count();
        closer.close(window);
        if (!watch.waitUntilHidden(window)) state.SkipWithError("it did not close");
        return took;
    };
    const double first = open();
    for (auto unused : state) {
        (void)unused;
        state.SetIterationTime(open());
    }
    state.counters["first_ms"] = first * 1000;
    QDBusConnection::disconnectFromBus(name);
}
BENCHMARK(requestToSettings)
    ->Name("Request to painted settings")
    ->UseManualTime()
    ->Iterations(20)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmora
