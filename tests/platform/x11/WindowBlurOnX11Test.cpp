#include "platform/qt/x11/X11WindowBlur.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QProcess>
#include <QTimer>
#include <QWindow>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <xcb/xcb.h>

namespace velmora {
namespace {

/// Stands in for a compositor: owns its selection and announces the effect.
class WindowBlurOnX11 : public testing::Test {
protected:
    WindowBlurOnX11() {
        m_window.create();
        changes = blur.changed.subscribe([this] { ++changeCount; });
    }
    ~WindowBlurOnX11() override {
        own(XCB_WINDOW_NONE);
        announce(false);
        xcb_flush(server());
    }

    static xcb_connection_t* server() {
        return qApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
    }
    static xcb_window_t root() { return xcb_setup_roots_iterator(xcb_get_setup(server())).data->root; }
    static xcb_atom_t atom(const char* name) {
        const auto cookie = xcb_intern_atom(server(), 0, static_cast<std::uint16_t>(std::strlen(name)), name);
        const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
            xcb_intern_atom_reply(server(), cookie, nullptr), &std::free);
        return reply->atom;
    }
    void compose(bool running) {
        own(running ? static_cast<xcb_window_t>(m_window.winId()) : xcb_window_t{XCB_WINDOW_NONE});
    }
    static void announce(bool effect) {
        const xcb_atom_t name = atom("_KDE_NET_WM_BLUR_BEHIND_REGION");
        const char nothing = 0;
        if (effect) {
            xcb_change_property(server(), XCB_PROP_MODE_REPLACE, root(), name, name, 8, 1, &nothing);
        } else {
            xcb_delete_property(server(), root(), name);
        }
        xcb_flush(server());
    }
    /// The rectangles that the window asks for.
    std::vector<std::uint32_t> region() const {
        const auto cookie =
            xcb_get_property(server(), 0, static_cast<xcb_window_t>(m_window.winId()),
                             atom("_KDE_NET_WM_BLUR_BEHIND_REGION"), XCB_ATOM_CARDINAL, 0, 64);
        const std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)> reply(
            xcb_get_property_reply(server(), cookie, nullptr), &std::free);
        const auto* const values = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
        return {values, values + xcb_get_property_value_length(reply.get()) / 4};
    }
    bool waitForChange() {
        bool expired = false;
        QTimer::singleShot(std::chrono::seconds(10), &m_window, [&expired] { expired = true; });
        while (changeCount == 0 && !expired) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return std::exchange(changeCount, 0) > 0;
    }
    std::uintptr_t window() const { return static_cast<std::uintptr_t>(m_window.winId()); }

    X11WindowBlur blur;

private:
    static void own(xcb_window_t window) {
        xcb_set_selection_owner(server(), window, atom("_NET_WM_CM_S0"), XCB_CURRENT_TIME);
        xcb_flush(server());
    }

    QWindow m_window;
    Subscription changes;
    int changeCount = 0;
};

TEST_F(WindowBlurOnX11, ADisplayWithoutACompositorBlursNothing) {
    EXPECT_FALSE(blur.isAvailable());
}

TEST_F(WindowBlurOnX11, ACompositorThatAnnouncesTheEffectBlursAndSaysSo) {
    compose(true);
    EXPECT_FALSE(blur.isAvailable()) << "one without the effect does not";
    announce(true);
    EXPECT_TRUE(waitForChange());
    EXPECT_TRUE(blur.isAvailable());
}

TEST_F(WindowBlurOnX11, AnEffectThatIsTurnedOffIsNoticed) {
    compose(true);
    announce(true);
    ASSERT_TRUE(waitForChange());
    announce(false);
    EXPECT_TRUE(waitForChange());
    EXPECT_FALSE(blur.isAvailable());
}

TEST_F(WindowBlurOnX11, WhatADeadCompositorLeftBehindDoesNotCount) {
    announce(true);
    EXPECT_FALSE(blur.isAvailable());
}

TEST_F(WindowBlurOnX11, TheWindowListsItsOneRectangle) {
    blur.setArea(window(), {0, 10, 330, 840});
    EXPECT_EQ(region(), (std::vector<std::uint32_t>{0, 10, 330, 840}));
    blur.setArea(window(), {0, 0, 220, 560});
    EXPECT_EQ(region(), (std::vector<std::uint32_t>{0, 0, 220, 560}));
}

TEST_F(WindowBlurOnX11, AnEmptyAreaTakesTheListAway) {
    blur.setArea(window(), {0, 0, 220, 560});
    for (const WindowBlur::Area nothing : {WindowBlur::Area{}, WindowBlur::Area{0, 0, -1, 560}}) {
        blur.setArea(window(), nothing);
        EXPECT_TRUE(region().empty()) << "an empty list would mean the whole window";
    }
}

}  // namespace
}  // namespace velmora
