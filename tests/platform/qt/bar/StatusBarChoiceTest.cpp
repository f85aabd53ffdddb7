#include "platform/qt/bar/StatusBarChoice.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Windows = Session::WindowSystem;
using Desktop = Session::Desktop;
using Place = StatusBarPlace;

const HostProfile kWide{.keepsWidth = true};
const HostProfile kSquare{};

TEST(StatusBarChoice, AutomaticTakesTheFirstThatHolds) {
    struct Row {
        Session session;
        std::optional<HostProfile> host;
        Place place;
    };
    const Row rows[] = {
        {{Windows::x11, Desktop::other}, kWide, Place::tray},
        {{Windows::xwayland, Desktop::gnome}, kWide, Place::tray},
        {{Windows::wayland, Desktop::other}, kWide, Place::tray},
        {{Windows::x11, Desktop::plasma}, kSquare, Place::dock},
        {{Windows::x11, Desktop::xfce}, std::nullopt, Place::dock},
        {{Windows::x11, Desktop::gnome}, kSquare, Place::dock},
        {{Windows::xwayland, Desktop::gnome}, kSquare, Place::topBar},
        {{Windows::xwayland, Desktop::gnome}, std::nullopt, Place::topBar},
        {{Windows::xwayland, Desktop::plasma}, kSquare, Place::dock},
        {{Windows::wayland, Desktop::gnome}, kSquare, Place::tray},
        {{Windows::wayland, Desktop::other}, std::nullopt, Place::nowhere},
        {{Windows::native, Desktop::other}, std::nullopt, Place::dock},
        {{Windows::offscreen, Desktop::other}, kSquare, Place::tray},
        {{Windows::offscreen, Desktop::other}, std::nullopt, Place::nowhere},
    };
    int number = 0;
    for (const Row& row : rows) {
        EXPECT_EQ(chooseStatusBar(row.session, row.host, BackendPreference::automatic), row.place)
            << "row " << number;
        ++number;
    }
}

TEST(StatusBarChoice, TrayWithAHostOfSquaresIsTray) {
    EXPECT_EQ(chooseStatusBar({Windows::x11, Desktop::plasma}, kSquare, BackendPreference::tray),
              Place::tray);
}

TEST(StatusBarChoice, TrayWithoutAHostWaits) {
    EXPECT_EQ(chooseStatusBar({Windows::x11, Desktop::plasma}, std::nullopt, BackendPreference::tray),
              Place::nowhere);
}

TEST(StatusBarChoice, StripPassesOverAHostThatKeepsWidth) {
    EXPECT_EQ(chooseStatusBar({Windows::x11, Desktop::other}, kWide, BackendPreference::strip), Place::dock);
    EXPECT_EQ(chooseStatusBar({Windows::offscreen, Desktop::other}, kWide, BackendPreference::strip),
              Place::dock);
}

TEST(StatusBarChoice, StripThatCannotBePlacedGoesToTheHost) {
    EXPECT_EQ(chooseStatusBar({Windows::wayland, Desktop::other}, kSquare, BackendPreference::strip),
              Place::tray);
    EXPECT_EQ(chooseStatusBar({Windows::wayland, Desktop::other}, std::nullopt, BackendPreference::strip),
              Place::nowhere);
}

TEST(StatusBarChoice, StoredTextsNameTheBackends) {
    EXPECT_EQ(backendPreferenceNamed("auto"), BackendPreference::automatic);
    EXPECT_EQ(backendPreferenceNamed("tray"), BackendPreference::tray);
    EXPECT_EQ(backendPreferenceNamed("strip"), BackendPreference::strip);
    EXPECT_EQ(backendPreferenceNamed(""), BackendPreference::automatic);
    EXPECT_EQ(backendPreferenceNamed("Tray"), BackendPreference::automatic);
}

TEST(StatusBarChoice, StoredTextsNameTheInks) {
    EXPECT_EQ(inkPreferenceNamed("auto"), InkPreference::automatic);
    EXPECT_EQ(inkPreferenceNamed("light"), InkPreference::light);
    EXPECT_EQ(inkPreferenceNamed("dark"), InkPreference::dark);
    EXPECT_EQ(inkPreferenceNamed("grey"), InkPreference::automatic);
}

}  // namespace
}  // namespace velmora
