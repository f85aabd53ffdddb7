#include "platform/linux/desktop/LinuxShortcutTargets.h"

#include "platform/linux/desktop/DesktopTree.h"
#include "platform/linux/desktop/KnownTools.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace velmora {
namespace {

using Desktops = std::vector<std::string>;

constexpr auto kOwnId = "com.torvane.Velmora";

class LinuxShortcutTargetsTest : public ::testing::Test {
protected:
    LinuxShortcutTargets targets(Desktops desktops = {}, std::vector<std::string> tags = {}) {
        const auto surroundings = tree.surroundings(std::move(desktops));
        return {std::make_shared<DesktopEntries>(surroundings, DesktopEntryLocales(tags)), surroundings,
                kOwnId, [this](const ApplicationLaunch& launch) { launches.push_back(launch); }};
    }
    /// The name of what is found; "" for nothing.
    std::string name(ShortcutKind kind, Desktops desktops = {}) {
        const auto found = targets(std::move(desktops)).find(kind);
        return found ? found->name : "";
    }
    ApplicationLaunch launched(ShortcutKind kind) {
        auto all = targets();
        const auto found = all.find(kind);
        if (!found) return {};
        all.open(*found);
        return launches.empty() ? ApplicationLaunch{} : launches.back();
    }

    DesktopTree tree;
    std::vector<ApplicationLaunch> launches;
};

TEST_F(LinuxShortcutTargetsTest, WithoutApplicationsThereIsNoTool) {
    for (const ShortcutKind kind : kAllShortcutKinds) EXPECT_EQ(name(kind), "");
}

TEST_F(LinuxShortcutTargetsTest, IdIsThePathOfTheEntryAndNameItsName) {
    tree.install("gparted", "GParted", "gparted");
    const auto found = targets().find(ShortcutKind::disks);
    EXPECT_EQ(found, (ShortcutTarget{tree.entryPath("gparted"), "GParted"}));
}

TEST_F(LinuxShortcutTargetsTest, NameFollowsTheSystemsLanguage) {
    tree.install("gparted", "GParted", "gparted", "Name[de]=Partitionierer\n");
    EXPECT_EQ(targets({}, {"de-DE", "en"}).find(ShortcutKind::disks)->name, "Partitionierer");
    EXPECT_EQ(targets({}, {"en-US"}).find(ShortcutKind::disks)->name, "GParted");
}

TEST_F(LinuxShortcutTargetsTest, EarlierInTheTableWinsWithoutADesktop) {
    tree.install("qps", "Third", "qps");
    tree.install("gnome-system-monitor", "First", "gnome-system-monitor");
    EXPECT_EQ(name(ShortcutKind::systemMonitor), "First");
}

TEST_F(LinuxShortcutTargetsTest, ToolOfTheRunningDesktopComesFirst) {
    tree.install("qps", "LXQt's", "qps");
    tree.install("gnome-system-monitor", "GNOME's", "gnome-system-monitor");
    EXPECT_EQ(name(ShortcutKind::systemMonitor, {"LXQt"}), "LXQt's");
    EXPECT_EQ(name(ShortcutKind::systemMonitor, {"ubuntu", "GNOME"}), "GNOME's");
}

TEST_F(LinuxShortcutTargetsTest, ToolThatAnotherDesktopKeepsToItselfIsFound) {
    tree.install("org.gnome.Terminal", "Terminal", "gnome-terminal", "OnlyShowIn=GNOME;Unity;\n");
    EXPECT_EQ(name(ShortcutKind::terminal, {"XFCE"}), "Terminal");
}

TEST_F(LinuxShortcutTargetsTest, SettingsOfAnotherDesktopAreNotFound) {
    tree.install("gnome-power-panel", "Power", "gnome-control-center", "OnlyShowIn=GNOME;Unity;\n");
    EXPECT_EQ(name(ShortcutKind::powerSettings, {"XFCE"}), "");
    EXPECT_EQ(name(ShortcutKind::powerSettings, {"Unity"}), "Power");
    EXPECT_EQ(name(ShortcutKind::powerSettings), "");
}

TEST_F(LinuxShortcutTargetsTest, SettingsThatAvoidADesktopAreNotFoundThere) {
    tree.install("nm-connection-editor", "Connections", "nm-connection-editor", "NotShowIn=KDE;\n");
    EXPECT_EQ(name(ShortcutKind::networkSettings, {"KDE"}), "");
    EXPECT_EQ(name(ShortcutKind::networkSettings, {"XFCE"}), "Connections");
    EXPECT_EQ(name(ShortcutKind::networkSettings), "Connections");
}

TEST_F(LinuxShortcutTargetsTest, SettingsPageThatIsNotInMenusIsFound) {
    tree.install("gnome-network-panel", "Network", "gnome-control-center",
                 "NoDisplay=true\nOnlyShowIn=GNOME;\n");
    EXPECT_EQ(name(ShortcutKind::networkSettings, {"GNOME"}), "Network");
}

TEST_F(LinuxShortcutTargetsTest, SettingsPageHasTheNameOfTheSettings) {
    tree.install("gnome-network-panel", "Network", "gnome-control-center");
    tree.install("gnome-control-center", "Former settings", "gnome-control-center");
    EXPECT_EQ(name(ShortcutKind::networkSettings), "Former settings");
    tree.install("org.gnome.Settings", "Settings", "gnome-control-center");
    const auto found = targets().find(ShortcutKind::networkSettings);
    EXPECT_EQ(found, (ShortcutTarget{tree.entryPath("gnome-network-panel"), "Settings"}));
}

TEST_F(LinuxShortcutTargetsTest, HiddenToolIsNotFound) {
    tree.install("gparted", "GParted", "gparted");
    tree.addUsersEntry("gparted", "Hidden=true\n");
    EXPECT_EQ(name(ShortcutKind::disks), "");
}

TEST_F(LinuxShortcutTargetsTest, ToolWhoseTrialProgramIsMissingIsNotFound) {
    tree.install("gparted", "GParted", "gparted", "TryExec=/usr/sbin/gparted\n");
    EXPECT_EQ(name(ShortcutKind::disks), "");
    tree.addProgram("../sbin/gparted");
    EXPECT_EQ(name(ShortcutKind::disks), "GParted");
}

TEST_F(LinuxShortcutTargetsTest, ToolWhoseProgramIsMissingIsNotFound) {
    tree.addEntry("gparted", "Name=GParted\nExec=gparted\n");
    EXPECT_EQ(name(ShortcutKind::disks), "");
}

TEST_F(LinuxShortcutTargetsTest, NextInTheTableStandsInForAnUnusableOne) {
    tree.addEntry("org.gnome.DiskUtility", "Name=Disks\nExec=gnome-disks\n");
    tree.install("gparted", "GParted", "gparted");
    EXPECT_EQ(name(ShortcutKind::disks, {"GNOME"}), "GParted");
}

TEST_F(LinuxShortcutTargetsTest, ToolThatTheBusStartsNeedsNoProgramHere) {
    tree.addEntry("org.gnome.DiskUtility", "Name=Disks\nDBusActivatable=true\n");
    EXPECT_EQ(name(ShortcutKind::disks), "Disks");
}

TEST_F(LinuxShortcutTargetsTest, UnknownMonitorIsFoundByItsCategories) {
    tree.install("org.example.Half", "Half", "half", "Categories=System;\n");
    EXPECT_EQ(name(ShortcutKind::systemMonitor), "");
    tree.install("org.example.Monitor", "Monitor", "monitor", "Categories=GTK;Monitor;System;\n");
    EXPECT_EQ(name(ShortcutKind::systemMonitor), "Monitor");
}

TEST_F(LinuxShortcutTargetsTest, ToolOfAnotherKindIsNoMonitor) {
    tree.install("org.gnome.Logs", "Logs", "gnome-logs", "Categories=System;Monitor;\n");
    EXPECT_EQ(name(ShortcutKind::systemMonitor), "");
}

TEST_F(LinuxShortcutTargetsTest, ThisProgramIsNoToolOfTheSystem) {
    tree.install(kOwnId, "Velmora", "velmora", "Categories=System;Monitor;\n");
    EXPECT_EQ(name(ShortcutKind::systemMonitor), "");
}

TEST_F(LinuxShortcutTargetsTest, WhatIsNotInMenusIsNotFoundByItsCategories) {
    tree.install("org.example.Monitor", "Monitor", "monitor", "Categories=System;Monitor;\nNoDisplay=true\n");
    EXPECT_EQ(name(ShortcutKind::systemMonitor), "");
}

TEST_F(LinuxShortcutTargetsTest, WindowComesBeforeAToolInATerminal) {
    tree.install("a-top", "In a terminal", "atop", "Categories=System;Monitor;\nTerminal=true\n");
    EXPECT_EQ(name(ShortcutKind::systemMonitor), "");  // No terminal to show it in.
    tree.addProgram("x-terminal-emulator");
    EXPECT_EQ(name(ShortcutKind::systemMonitor), "In a terminal");
    tree.install("b", "In a window", "b", "Categories=System;Monitor;\n");
    EXPECT_EQ(name(ShortcutKind::systemMonitor), "In a window");
}

TEST_F(LinuxShortcutTargetsTest, UnknownTerminalIsFoundByItsCategory) {
    tree.install("foot", "Foot", "foot", "Categories=System;TerminalEmulator;\n");
    EXPECT_EQ(name(ShortcutKind::terminal), "Foot");
}

TEST_F(LinuxShortcutTargetsTest, TerminalThatTheUserPrefersWins) {
    tree.install("org.gnome.Terminal", "GNOME's", "gnome-terminal");
    tree.install("foot", "Foot", "foot");
    tree.files().write("home/ada/.config/xdg-terminals.list", "gone.desktop\nfoot.desktop\n");
    EXPECT_EQ(name(ShortcutKind::terminal, {"GNOME"}), "Foot");
}

TEST_F(LinuxShortcutTargetsTest, TerminalWithoutAnEntryIsItsProgram) {
    tree.addProgram("x-terminal-emulator");
    const std::string path = tree.surroundings().root.path("usr/bin/x-terminal-emulator");
    auto all = targets();
    const auto found = all.find(ShortcutKind::terminal);
    ASSERT_EQ(found, (ShortcutTarget{path, "x-terminal-emulator"}));
    all.open(*found);
    EXPECT_EQ(launches, (std::vector<ApplicationLaunch>{{.command = {path}}}));
}

TEST_F(LinuxShortcutTargetsTest, CleanerFreesSpaceAndIsNoViewerOfIt) {
    tree.install("org.gnome.baobab", "Usage", "baobab");
    EXPECT_EQ(name(ShortcutKind::cleaner), "");
    tree.install("stacer", "Stacer", "stacer");
    EXPECT_EQ(name(ShortcutKind::cleaner), "Stacer");
    tree.install("org.bleachbit.BleachBit", "BleachBit", "bleachbit");
    EXPECT_EQ(name(ShortcutKind::cleaner, {"KDE"}), "BleachBit");
}

TEST_F(LinuxShortcutTargetsTest, OpeningStartsTheCommandInItsFolder) {
    tree.install("gparted", "GParted", "gparted", "Exec=gparted --fast %f\nPath=/opt/gparted\n");
    EXPECT_EQ(
        launched(ShortcutKind::disks),
        (ApplicationLaunch{.id = "gparted", .command = {"gparted", "--fast"}, .folder = "/opt/gparted"}));
}

TEST_F(LinuxShortcutTargetsTest, OpeningTellsWhatTheBusStarts) {
    tree.install("org.gnome.DiskUtility", "Disks", "gnome-disks", "DBusActivatable=true\n");
    EXPECT_EQ(launched(ShortcutKind::disks),
              (ApplicationLaunch{
                  .id = "org.gnome.DiskUtility", .isBusActivatable = true, .command = {"gnome-disks"}}));
}

TEST_F(LinuxShortcutTargetsTest, OpeningAToolOfATerminalStartsTheTerminal) {
    tree.install("htop", "Htop", "htop", "Exec=htop -d 5\nCategories=System;Monitor;\nTerminal=true\n");
    tree.addProgram("x-terminal-emulator");
    const std::string debians = tree.surroundings().root.path("usr/bin/x-terminal-emulator");
    EXPECT_EQ(launched(ShortcutKind::systemMonitor).command,
              (std::vector<std::string>{debians, "-e", "htop", "-d", "5"}));
    tree.addProgram("xdg-terminal-exec");
    const std::string preferred = tree.surroundings().root.path("usr/bin/xdg-terminal-exec");
    EXPECT_EQ(launched(ShortcutKind::systemMonitor).command,
              (std::vector<std::string>{preferred, "htop", "-d", "5"}));
}

TEST_F(LinuxShortcutTargetsTest, OpeningWhatIsGoneDoesNothing) {
    tree.install("gparted", "GParted", "gparted");
    auto all = targets();
    const auto found = all.find(ShortcutKind::disks);
    tree.removeEntry("gparted");
    all.open(*found);
    all.open({});
    all.open({"/etc/passwd", "passwords"});
    EXPECT_TRUE(launches.empty());
}

TEST_F(LinuxShortcutTargetsTest, WithoutAStarterOpeningDoesNothing) {
    tree.install("gparted", "GParted", "gparted");
    const auto surroundings = tree.surroundings();
    LinuxShortcutTargets unable(std::make_shared<DesktopEntries>(surroundings, DesktopEntryLocales()),
                                surroundings, kOwnId, nullptr);
    unable.open(*unable.find(ShortcutKind::disks));
}

/// Installs the programs that the entries of the captured machine start.
class ThreeDesktops : public LinuxShortcutTargetsTest {
protected:
    void SetUp() override {
        tree.files().show("three-desktops");
        for (const char* program :
             {"gnome-system-monitor", "plasma-systemmonitor", "xfce4-taskmanager", "gnome-terminal",
              "konsole", "xfce4-terminal", "ksystemlog", "partitionmanager", "gnome-control-center",
              "systemsettings", "nm-connection-editor", "xfce4-power-manager-settings", "bleachbit",
              "baobab"}) {
            tree.addProgram(program);
        }
    }
    /// The ids in the order of the kinds, "-" for none.
    std::vector<std::string> ids(const Desktops& desktops) {
        auto all = targets(desktops);
        std::vector<std::string> found;
        for (const ShortcutKind kind : kAllShortcutKinds) {
            const auto target = all.find(kind);
            found.push_back(target ? std::filesystem::path(target->id).stem().native() : "-");
        }
        return found;
    }
};

TEST_F(ThreeDesktops, GnomeHasItsOwnTools) {
    EXPECT_EQ(ids({"GNOME"}),
              (std::vector<std::string>{"gnome-system-monitor", "org.gnome.Terminal", "org.gnome.Logs",
                                        "org.gnome.DiskUtility", "gnome-network-panel", "gnome-power-panel",
                                        "org.bleachbit.BleachBit"}));
    EXPECT_EQ(targets({"GNOME"}, {"de-DE"}).find(ShortcutKind::powerSettings)->name, "Einstellungen");
}

TEST_F(ThreeDesktops, PlasmaHasItsOwnTools) {
    EXPECT_EQ(ids({"KDE"}), (std::vector<std::string>{"org.kde.plasma-systemmonitor", "org.kde.konsole",
                                                      "org.kde.ksystemlog", "org.kde.partitionmanager",
                                                      "kcm_networkmanagement", "kcm_powerdevilprofilesconfig",
                                                      "org.bleachbit.BleachBit"}));
    EXPECT_EQ(targets({"KDE"}, {"de-DE"}).find(ShortcutKind::networkSettings)->name, "Systemeinstellungen");
}

TEST_F(ThreeDesktops, XfceHasItsOwnToolsAndBorrowsTheOthers) {
    EXPECT_EQ(ids({"XFCE"}),
              (std::vector<std::string>{"xfce4-taskmanager", "xfce4-terminal", "org.gnome.Logs",
                                        "org.gnome.DiskUtility", "nm-connection-editor",
                                        "xfce4-power-manager-settings", "org.bleachbit.BleachBit"}));
}

TEST_F(ThreeDesktops, UnknownDesktopBorrowsAllButPowerSettings) {
    EXPECT_EQ(ids({"sway"}),
              (std::vector<std::string>{"gnome-system-monitor", "org.gnome.Terminal", "org.gnome.Logs",
                                        "org.gnome.DiskUtility", "nm-connection-editor", "-",
                                        "org.bleachbit.BleachBit"}));
}

}  // namespace
}  // namespace velmora
