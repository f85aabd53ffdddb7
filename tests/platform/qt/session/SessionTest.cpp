#include "platform/qt/session/Session.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(Session, DesktopIsFoundAnywhereInTheList) {
    EXPECT_EQ(Session::desktopNamed("GNOME"), Session::Desktop::gnome);
    EXPECT_EQ(Session::desktopNamed("ubuntu:GNOME"), Session::Desktop::gnome);
    EXPECT_EQ(Session::desktopNamed("GNOME-Classic:GNOME"), Session::Desktop::gnome);
    EXPECT_EQ(Session::desktopNamed("KDE"), Session::Desktop::plasma);
    EXPECT_EQ(Session::desktopNamed("XFCE"), Session::Desktop::xfce);
}

TEST(Session, OtherDesktopsAreOther) {
    for (const char* names : {"", ":", "X-Cinnamon", "MATE", "LXQt", "sway", "GNOMEISH"}) {
        EXPECT_EQ(Session::desktopNamed(names), Session::Desktop::other) << names;
    }
}

TEST(Session, OffscreenPlatformIsSeen) {
    EXPECT_EQ(Session::current().windows, Session::WindowSystem::offscreen);
}

}  // namespace
}  // namespace velmora
