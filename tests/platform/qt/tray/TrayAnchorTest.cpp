#include "platform/qt/tray/TrayAnchor.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Windows = Session::WindowSystem;

/// A bar of 32 points at the top of the first screen, which the second one does not have.
const std::vector<ScreenPlace> kScreens{{{0, 0, 1920, 1080}, {0, 32, 1920, 1048}},
                                        {{1920, 0, 1280, 1024}, {1920, 0, 1280, 1024}}};
/// As a compositor shows them that keeps its bars to itself.
const std::vector<ScreenPlace> kUntold{{{0, 0, 1920, 1080}, {0, 0, 1920, 1080}}};
constexpr Anchor kCorner{1919, 32, 1, 1};
const HostProfile kHost;
const HostProfile kLocalPoints{.clickPointMayBeLocal = true};

TEST(TrayAnchor, PointerCountsOnX11WhateverTheHostSays) {
    const TrayClick click{.x = 5, .y = 6, .pointerX = 1500, .pointerY = 12, .imageWidth = 60};
    EXPECT_EQ(trayAnchor(click, kHost, Windows::x11, kScreens), (Anchor{1500, 12, 1, 1}));
}

TEST(TrayAnchor, HostsPointCountsWhereThePointerIsUnknown) {
    const TrayClick click{.x = 1000, .y = 10, .imageWidth = 60};
    EXPECT_EQ(trayAnchor(click, kHost, Windows::xwayland, kScreens), (Anchor{1000, 10, 1, 1}));
    EXPECT_EQ(trayAnchor(click, kHost, Windows::wayland, kScreens), (Anchor{1000, 10, 1, 1}));
}

TEST(TrayAnchor, PointOffAllScreensGivesTheCorner) {
    const TrayClick click{.x = -1, .y = 10, .imageWidth = 60};
    EXPECT_EQ(trayAnchor(click, kHost, Windows::xwayland, kScreens), kCorner);
}

TEST(TrayAnchor, PointThatMayBeRelativeToTheItemGivesTheCorner) {
    const TrayClick click{.x = 54, .y = 15, .imageWidth = 60};
    EXPECT_EQ(trayAnchor(click, kLocalPoints, Windows::xwayland, kScreens), kCorner);
}

TEST(TrayAnchor, PointBeyondTheItemsWidthIsAPointOfTheDesktop) {
    const TrayClick click{.x = 1700, .y = 15, .imageWidth = 60};
    EXPECT_EQ(trayAnchor(click, kLocalPoints, Windows::xwayland, kScreens), (Anchor{1700, 15, 1, 1}));
}

TEST(TrayAnchor, PointInABarOfWhichXClientsKnowNothingIsAsHighAsABar) {
    const auto anchorAt = [](int y) {
        return trayAnchor({.x = 1700, .y = y, .imageWidth = 60}, kHost, Windows::xwayland, kUntold);
    };
    EXPECT_EQ(anchorAt(15), (Anchor{1700, 15, 1, 25})) << "down to the bar's lower edge";
    EXPECT_EQ(anchorAt(1070), (Anchor{1700, 1040, 1, 31})) << "up to the upper edge of one at the bottom";
    EXPECT_EQ(anchorAt(500), (Anchor{1700, 500, 1, 1})) << "a click elsewhere is none in a bar";
}

TEST(TrayAnchor, CornerStaysClearOfABarOfWhichXClientsKnowNothing) {
    EXPECT_EQ(cornerAnchor(Windows::xwayland, kUntold), (Anchor{1919, 0, 1, 40}));
    EXPECT_EQ(cornerAnchor(Windows::x11, kUntold), (Anchor{1919, 0, 1, 1})) << "an X server tells";
    EXPECT_EQ(cornerAnchor(Windows::xwayland, kScreens), kCorner) << "this compositor tells";
}

TEST(TrayAnchor, WithoutScreensThereIsAPlaceAllTheSame) {
    EXPECT_EQ(cornerAnchor(Windows::x11, {}), Anchor());
}

}  // namespace
}  // namespace velmora
