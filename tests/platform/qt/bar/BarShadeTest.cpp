#include "platform/qt/bar/BarShade.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Desktop = Session::Desktop;
using Place = StatusBarPlace;
using Ink = InkPreference;

constexpr BarSurroundings kLightScheme{.prefersDark = false};
constexpr BarSurroundings kDarkScheme{.prefersDark = true};

TEST(BarShade, StripFollowsTheScheme) {
    EXPECT_TRUE(isBarDark(Place::dock, Ink::automatic, kDarkScheme));
    EXPECT_FALSE(isBarDark(Place::dock, Ink::automatic, kLightScheme));
}

TEST(BarShade, StripInATopBarIsAlwaysDark) {
    EXPECT_TRUE(isBarDark(Place::topBar, Ink::automatic, kLightScheme));
    EXPECT_TRUE(isBarDark(Place::topBar, Ink::dark, kLightScheme));
}

TEST(BarShade, WithoutASchemeTheLightnessOfWindowsDecides) {
    EXPECT_TRUE(isBarDark(Place::dock, Ink::automatic, {.paletteLightness = 0.49}));
    EXPECT_FALSE(isBarDark(Place::dock, Ink::automatic, {.paletteLightness = 0.5}));
}

TEST(BarShade, SchemeStandsAboveTheLightnessOfWindows) {
    EXPECT_FALSE(isBarDark(Place::dock, Ink::automatic, {.prefersDark = false, .paletteLightness = 0.1}));
}

TEST(BarShade, UsersInkDecides) {
    for (const Place place : {Place::tray, Place::dock}) {
        EXPECT_TRUE(isBarDark(place, Ink::light, kLightScheme));
        EXPECT_FALSE(isBarDark(place, Ink::dark, kDarkScheme));
    }
    EXPECT_FALSE(isBarDark(Place::tray, Ink::dark, {.desktop = Desktop::gnome}));
}

TEST(BarShade, GnomesBarIsDarkWhateverTheScheme) {
    EXPECT_TRUE(isBarDark(Place::tray, Ink::automatic, {.desktop = Desktop::gnome, .prefersDark = false}));
}

TEST(BarShade, PlasmasPanelsCountBeforeTheScheme) {
    EXPECT_TRUE(isBarDark(Place::tray, Ink::automatic,
                          {.desktop = Desktop::plasma, .prefersDark = false, .plasmaPanel = 0.2}));
    EXPECT_FALSE(isBarDark(Place::tray, Ink::automatic,
                           {.desktop = Desktop::plasma, .prefersDark = true, .plasmaPanel = 0.9}));
    EXPECT_TRUE(isBarDark(Place::tray, Ink::automatic, {.desktop = Desktop::plasma, .prefersDark = true}));
}

TEST(BarShade, XfcesDarkModeCountsBeforeItsPanelsColor) {
    EXPECT_TRUE(
        isBarDark(Place::tray, Ink::automatic,
                  {.desktop = Desktop::xfce, .prefersDark = false, .xfceDarkMode = true, .xfcePanel = 0.9}));
}

TEST(BarShade, XfcesPanelColorCountsWithoutDarkMode) {
    EXPECT_TRUE(
        isBarDark(Place::tray, Ink::automatic,
                  {.desktop = Desktop::xfce, .prefersDark = false, .xfceDarkMode = false, .xfcePanel = 0.1}));
    EXPECT_FALSE(isBarDark(Place::tray, Ink::automatic,
                           {.desktop = Desktop::xfce, .prefersDark = true, .xfcePanel = 0.9}));
}

TEST(BarShade, XfceThatSaysNothingFollowsTheScheme) {
    EXPECT_TRUE(isBarDark(Place::tray, Ink::automatic, {.desktop = Desktop::xfce, .prefersDark = true}));
    EXPECT_FALSE(isBarDark(Place::tray, Ink::automatic, {.desktop = Desktop::xfce, .prefersDark = false}));
}

TEST(BarShade, PixelsOfOtherPanelsCountBeforeTheScheme) {
    EXPECT_TRUE(isBarDark(Place::tray, Ink::automatic, {.prefersDark = false, .dockPixels = 0.1}));
    EXPECT_FALSE(isBarDark(Place::tray, Ink::automatic, {.prefersDark = true, .dockPixels = 0.8}));
    EXPECT_TRUE(isBarDark(Place::tray, Ink::automatic, kDarkScheme));
}

TEST(BarShade, PixelsOfOtherPanelsAreNothingToOurOwnStrip) {
    EXPECT_FALSE(isBarDark(Place::dock, Ink::automatic, {.prefersDark = false, .dockPixels = 0.1}));
}

}  // namespace
}  // namespace velmora
