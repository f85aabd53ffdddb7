#include "platform/linux/desktop/DesktopSurroundings.h"

#include "platform/linux/desktop/DesktopTree.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <optional>

namespace velmora {
namespace {

using Texts = std::vector<std::string>;

/// Gives the environment back as it was.
class DesktopSurroundingsEnvironment : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* name : {"HOME", "XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME",
                                 "XDG_CONFIG_DIRS", "PATH", "XDG_CURRENT_DESKTOP"}) {
            const char* value = std::getenv(name);
            m_saved[name] = value ? std::optional<std::string>(value) : std::nullopt;
            ::unsetenv(name);
        }
        ::setenv("HOME", "/home/ada", 1);
    }
    void TearDown() override {
        for (const auto& [name, value] : m_saved) {
            value ? ::setenv(name.c_str(), value->c_str(), 1) : ::unsetenv(name.c_str());
        }
    }

private:
    std::map<std::string, std::optional<std::string>> m_saved;
};

TEST_F(DesktopSurroundingsEnvironment, UnsetVariablesGiveTheUsualFolders) {
    const auto found = DesktopSurroundings::ofThisProcess();
    EXPECT_EQ(found.dataFolders, (Texts{"/home/ada/.local/share", "/usr/local/share", "/usr/share"}));
    EXPECT_EQ(found.configurationFolders, (Texts{"/home/ada/.config", "/etc/xdg"}));
    EXPECT_EQ(found.programFolders, (Texts{"/usr/local/bin", "/usr/bin", "/bin"}));
    EXPECT_EQ(found.desktops, Texts());
}

TEST_F(DesktopSurroundingsEnvironment, SetVariablesCount) {
    ::setenv("XDG_DATA_HOME", "/data", 1);
    ::setenv("XDG_DATA_DIRS", "/flatpak:/usr/share", 1);
    ::setenv("PATH", "/usr/games::/bin", 1);
    ::setenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME", 1);
    const auto found = DesktopSurroundings::ofThisProcess();
    EXPECT_EQ(found.dataFolders, (Texts{"/data", "/flatpak", "/usr/share"}));
    EXPECT_EQ(found.programFolders, (Texts{"/usr/games", "/bin"}));
    EXPECT_EQ(found.desktops, (Texts{"ubuntu", "GNOME"}));
}

TEST(DesktopSurroundings, ProgramIsFoundByNameAndByPathBelowTheRoot) {
    const DesktopTree tree;
    tree.addProgram("gparted");
    const auto surroundings = tree.surroundings();
    const std::string path = surroundings.root.path("usr/bin/gparted");
    EXPECT_EQ(surroundings.program("gparted"), path);
    EXPECT_EQ(surroundings.program("/usr/bin/gparted"), path);
    EXPECT_EQ(surroundings.program("/usr/sbin/gparted"), std::nullopt);
}

TEST(DesktopSurroundings, OnlyAnExecutableFileIsAProgram) {
    DesktopTree tree;
    tree.files().write("usr/bin/plain", "");
    tree.files().write("usr/bin/folder/file", "");
    tree.files().link("usr/bin/broken", "nowhere");
    for (const char* name : {"plain", "folder", "broken", "none", "", "/", ".", "./plain", "folder/file"})
        EXPECT_EQ(tree.surroundings().program(name), std::nullopt) << name;
}

TEST(DesktopSurroundings, LinkToAProgramIsOne) {
    DesktopTree tree;
    tree.addProgram("xterm");
    tree.files().link("usr/bin/x-terminal-emulator", "xterm");
    EXPECT_TRUE(tree.surroundings().program("x-terminal-emulator"));
}

}  // namespace
}  // namespace velmora
