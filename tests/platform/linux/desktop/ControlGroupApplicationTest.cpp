#include "platform/linux/desktop/ControlGroupApplication.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Ids = std::vector<std::string>;

constexpr std::string_view kUser = "/user.slice/user-1000.slice/user@1000.service/";

Ids idsOf(std::string_view unit) {
    std::string text = "0::";
    text.append(kUser).append("app.slice/").append(unit).append("\n");
    return applicationIdsOfControlGroup(text);
}

TEST(ControlGroupApplication, ScopeWithALauncher) {
    EXPECT_EQ(idsOf("app-gnome-org.gnome.Nautilus-4711.scope"),
              (Ids{"org.gnome.Nautilus", "gnome-org.gnome.Nautilus"}));
    EXPECT_EQ(idsOf("app-flatpak-org.mozilla.firefox-123.scope").front(), "org.mozilla.firefox");
}

TEST(ControlGroupApplication, ScopeWithoutALauncher) {
    EXPECT_EQ(idsOf("app-org.kde.konsole-0d5b9a4e1c.scope"), Ids{"org.kde.konsole"});
}

TEST(ControlGroupApplication, DashWithinTheIdIsEscaped) {
    EXPECT_EQ(idsOf("app-gnome-firefox\\x2desr-99.scope").front(), "firefox-esr");
}

TEST(ControlGroupApplication, DashThatNobodyEscapedIsTriedToo) {
    EXPECT_EQ(idsOf("app-xfce4-terminal-99.scope"), (Ids{"terminal", "xfce4-terminal"}));
}

TEST(ControlGroupApplication, ServiceOfTheAutostartFolder) {
    EXPECT_EQ(idsOf("app-org.gnome.Evolution\\x2dalarm\\x2dnotify@autostart.service"),
              Ids{"org.gnome.Evolution-alarm-notify"});
}

TEST(ControlGroupApplication, ServiceWithAndWithoutARandomEnd) {
    EXPECT_EQ(idsOf("app-org.kde.kate@1f2e3d.service"), Ids{"org.kde.kate"});
    const Ids ids = idsOf("app-kde-org.kde.kate-1f2e3d.service");
    EXPECT_NE(std::find(ids.begin(), ids.end(), "org.kde.kate"), ids.end());
    EXPECT_EQ(idsOf("app-org.kde.kate.service"), Ids{"org.kde.kate"});
}

TEST(ControlGroupApplication, ServiceInASliceOfTheApplications) {
    EXPECT_EQ(idsOf("app-org.gnome.Terminal.slice/gnome-terminal-server.service"), Ids{"org.gnome.Terminal"});
}

TEST(ControlGroupApplication, WhatATerminalStartsInAScopeOfItsOwnIsAnother) {
    EXPECT_EQ(idsOf("app-org.gnome.Terminal.slice/vte-spawn-0d5b9a4e-1111-2222-3333-444444444444.scope"),
              Ids());
    EXPECT_EQ(idsOf("app-org.kde.konsole-1f.scope/tmux-spawn-2.scope"), Ids());
}

TEST(ControlGroupApplication, FolderThatTheApplicationMadeBelongsToIt) {
    EXPECT_EQ(idsOf("app-org.kde.konsole-1f.scope/tab(42)/inner"), Ids{"org.kde.konsole"});
}

TEST(ControlGroupApplication, SnapNamesItsProgram) {
    EXPECT_EQ(idsOf("snap.firefox.firefox-0d5b9a4e-1111-2222-3333-444444444444.scope"),
              Ids{"firefox_firefox"});
    EXPECT_EQ(idsOf("snap.firefox.firefox.0d5b9a4e-1111-2222-3333-444444444444.scope"),
              Ids{"firefox_firefox"});
    EXPECT_EQ(idsOf("snap.gnome-calculator.calc.service"),
              (Ids{"gnome-calculator_calc", "gnome-calculator_gnome-calculator"}));
}

TEST(ControlGroupApplication, ServiceThatTheBusStarted) {
    EXPECT_EQ(idsOf("dbus-:1.24-org.gnome.Nautilus@0.service"), Ids{"org.gnome.Nautilus"});
}

TEST(ControlGroupApplication, OtherUnitsAreNoApplications) {
    for (const char* unit : {"pipewire.service", "dbus.service", "session-2.scope", "app.slice", ""})
        EXPECT_EQ(idsOf(unit), Ids()) << unit;
    EXPECT_EQ(applicationIdsOfControlGroup("0::/user.slice/user-1000.slice/session-2.scope\n"), Ids());
    EXPECT_EQ(applicationIdsOfControlGroup("0::/\n"), Ids());
    EXPECT_EQ(applicationIdsOfControlGroup("0::/init.scope\n"), Ids());
}

TEST(ControlGroupApplication, OlderHierarchiesAreReadToo) {
    EXPECT_EQ(applicationIdsOfControlGroup("12:pids:/user.slice\n1:name=systemd:" + std::string(kUser) +
                                           "app-org.kde.kate-1.scope\n0::/user.slice\n"),
              Ids{"org.kde.kate"});
}

TEST(ControlGroupApplication, OtherTextNamesNone) {
    for (const char* text : {"", "\n", "0", "0:", "::", "0::app-.scope", "0::/app--.scope", "0::/snap..scope",
                             "0::/snap.a.scope", "0::/dbus-:1.2.service", "no colons at all.scope"}) {
        for (const std::string& id : applicationIdsOfControlGroup(text)) EXPECT_NE(id, "") << text;
    }
    EXPECT_EQ(applicationIdsOfControlGroup("app-org.kde.kate-1.scope\n"), Ids());
}

}  // namespace
}  // namespace velmora
