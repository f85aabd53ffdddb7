#include "platform/qt/TrayAnchor.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Windows = Session::WindowSystem;

const std::vector<DesktopRect> kScreens{{0, 0, 1920, 1080}, {1920, 0, 1280, 1024}};
constexpr DesktopRect kAvailable{0, 32, 1920, 1048};
constexpr Anchor kCorner{1919, 32, 1, 1};
const HostProfile kHost;
const HostProfile kLocalPoints{.clickPointMayBeLocal = true};

TEST(TrayAnchor, PointerCountsOnX11WhateverTheHostSays) {
    const TrayClick click{.x = 5, .y = 6, .pointerX = 1500, .pointerY = 12, .imageWidth = 60};
    EXPECT_EQ(trayAnchor(click, kHost, Windows::x11, kScreens, kAvailable), (Anchor{1500, 12, 1, 1}));
}

TEST(TrayAnchor, HostsPointCountsWhereThePointerIsUnknown) {
    const TrayClick click{.x = 2000, .y = 10, .imageWidth = 60};
    EXPECT_EQ(trayAnchor(click, kHost, Windows::xwayland, kScreens, kAvailable), (Anchor{2000, 10, 1, 1}));
    EXPECT_EQ(trayAnchor(click, kHost, Windows::wayland, kScreens, kAvailable), (Anchor{2000, 10, 1, 1}));
}

TEST(TrayAnchor, PointOffAllScreensGivesTheCorner) {
    const TrayClick click{.x = -1, .y = 10, .imageWidth = 60};
    EXPECT_EQ(trayAnchor(click, kHost, Windows::xwayland, kScreens, kAvailable), kCorner);
}

TEST(TrayAnchor, PointThatMayBeRelativeToTheItemGivesTheCorner) {
    const TrayClick click{.x = 54, .y = 15, .imageWidth = 60};
    EXPECT_EQ(trayAnchor(click, kLocalPoints, Windows::xwayland, kScreens, kAvailable), kCorner);
}

TEST(TrayAnchor, PointBeyondTheItemsWidthIsAPointOfTheDesktop) {
    const TrayClick click{.x = 1700, .y = 15, .imageWidth = 60};
    EXPECT_EQ(trayAnchor(click, kLocalPoints, Windows::xwayland, kScreens, kAvailable),
              (Anchor{1700, 15, 1, 1}));
}

}  // namespace
}  // namespace velmora
