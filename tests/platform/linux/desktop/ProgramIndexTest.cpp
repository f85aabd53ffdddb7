#include "platform/linux/desktop/ProgramIndex.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Words = std::vector<std::string>;

class ProgramIndexTest : public ::testing::Test {
protected:
    DesktopEntry& add(const std::string& id, const Words& command) {
        auto entry = std::make_shared<InstalledEntry>();
        entry->id = id;
        entry->entry.command = command;
        entries.push_back(entry);
        return entry->entry;
    }
    /// "" for none.
    std::string idOf(std::string_view program) const {
        const auto found = ProgramIndex(entries).find(program);
        return found ? found->id : "";
    }

    std::vector<DesktopEntries::Found> entries;
};

TEST_F(ProgramIndexTest, ProgramIsFoundByTheFileNameOfTheCommand) {
    add("org.gnome.Nautilus", {"nautilus", "--new-window"});
    add("code", {"/usr/share/code/code"});
    EXPECT_EQ(idOf("nautilus"), "org.gnome.Nautilus");
    EXPECT_EQ(idOf("code"), "code");
    EXPECT_EQ(idOf("other"), "");
    EXPECT_EQ(idOf(""), "");
}

TEST_F(ProgramIndexTest, WhatOnlyStartsAnotherProgramIsPassedOver) {
    add("a", {"env", "GDK_BACKEND=x11", "-u", "program-a"});
    add("b", {"pkexec", "/usr/sbin/program-b"});
    EXPECT_EQ(idOf("program-a"), "a");
    EXPECT_EQ(idOf("program-b"), "b");
    EXPECT_EQ(idOf("env"), "");
}

TEST_F(ProgramIndexTest, InterpretersAndLaunchersSayNothing) {
    add("script", {"python3", "/usr/share/script/main.py"});
    add("shell", {"sh", "-c", "exec something"});
    add("flatpak", {"/usr/bin/flatpak", "run", "org.example.App"});
    for (const char* program : {"python3", "python3.11", "sh", "flatpak", "main.py"})
        EXPECT_EQ(idOf(program), "") << program;
}

TEST_F(ProgramIndexTest, TrialProgramStandsInForTheCommand) {
    add("office", {"office-launcher"}).tryExec = "/usr/bin/office";
    EXPECT_EQ(idOf("office"), "office");
    add("other", {"office"});
    EXPECT_EQ(idOf("office"), "other");
}

TEST_F(ProgramIndexTest, WindowClassStandsInInAnyCase) {
    add("google-chrome", {"/usr/bin/google-chrome-stable"}).windowClass = "Chrome";
    EXPECT_EQ(idOf("chrome"), "google-chrome");
}

TEST_F(ProgramIndexTest, CommandCountsMoreThanAWindowClass) {
    add("a", {"first"}).windowClass = "second";
    add("b", {"second", "with", "arguments"});
    EXPECT_EQ(idOf("second"), "b");
}

TEST_F(ProgramIndexTest, ApplicationInTheMenusComesBeforeAPageOfIt) {
    add("gnome-network-panel", {"gnome-control-center", "network"}).isInMenus = false;
    add("gnome-sound-panel", {"gnome-control-center"}).isInMenus = false;
    add("org.gnome.Settings", {"gnome-control-center", "with", "two"});
    EXPECT_EQ(idOf("gnome-control-center"), "org.gnome.Settings");
}

TEST_F(ProgramIndexTest, FewerArgumentsComeFirst) {
    add("writer", {"office", "--writer"});
    add("start", {"office"});
    add("zebra", {"office"});
    EXPECT_EQ(idOf("office"), "start");
}

TEST_F(ProgramIndexTest, ApplicationOfTheBusAloneHasNoProgram) {
    add("bus", {});
    EXPECT_EQ(idOf(""), "");
}

}  // namespace
}  // namespace velmora
