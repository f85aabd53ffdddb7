#include "platform/linux/files/XdgFolders.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace velmora {
namespace {

using Paths = std::vector<std::filesystem::path>;

/// Gives the environment back as it was.
class XdgFolders : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* name :
             {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CONFIG_DIRS", "XDG_DATA_DIRS"}) {
            const char* value = std::getenv(name);
            m_saved[name] = value ? std::optional<std::string>(value) : std::nullopt;
            ::unsetenv(name);
        }
        ::setenv("HOME", "/home/someone", 1);
    }
    void TearDown() override {
        for (const auto& [name, value] : m_saved) {
            if (value) {
                ::setenv(name.c_str(), value->c_str(), 1);
            } else {
                ::unsetenv(name.c_str());
            }
        }
    }

private:
    std::map<std::string, std::optional<std::string>> m_saved;
};

TEST_F(XdgFolders, UnsetVariablesGiveTheFoldersBelowHome) {
    EXPECT_EQ(xdgConfigHome(), "/home/someone/.config");
    EXPECT_EQ(xdgDataHome(), "/home/someone/.local/share");
    EXPECT_EQ(defaultsFile(), "/home/someone/.config/Velmora/defaults.db");
}

TEST_F(XdgFolders, SetVariablesWin) {
    ::setenv("XDG_CONFIG_HOME", "/tmp/config", 1);
    ::setenv("XDG_DATA_HOME", "/tmp/data", 1);
    EXPECT_EQ(defaultsFile(), "/tmp/config/Velmora/defaults.db");
    EXPECT_EQ(xdgDataHome(), "/tmp/data");
}

TEST_F(XdgFolders, EmptyAndRelativeVariablesCountAsUnset) {
    ::setenv("XDG_CONFIG_HOME", "", 1);
    ::setenv("XDG_DATA_HOME", "relative/data", 1);
    EXPECT_EQ(xdgConfigHome(), "/home/someone/.config");
    EXPECT_EQ(xdgDataHome(), "/home/someone/.local/share");
}

TEST_F(XdgFolders, WithoutAHomeTheUserDatabaseTellsIt) {
    ::unsetenv("HOME");
    EXPECT_TRUE(xdgConfigHome().is_absolute());
}

TEST_F(XdgFolders, SystemFoldersAreInTheirOrder) {
    EXPECT_EQ(xdgConfigDirs(), (Paths{"/etc/xdg"}));
    ::setenv("XDG_CONFIG_DIRS", "/etc/xdg/xfce::relative:/etc/xdg", 1);
    EXPECT_EQ(xdgConfigDirs(), (Paths{"/etc/xdg/xfce", "/etc/xdg"}));
}

TEST_F(XdgFolders, FoldersOfDataAreInTheirOrder) {
    EXPECT_EQ(xdgDataDirs(), (Paths{"/usr/local/share", "/usr/share"}));
    ::setenv("XDG_DATA_DIRS", "relative", 1);
    EXPECT_EQ(xdgDataDirs(), (Paths{"/usr/local/share", "/usr/share"}));
    ::setenv("XDG_DATA_DIRS", "/var/lib/flatpak/exports/share:/usr/share", 1);
    EXPECT_EQ(xdgDataDirs(), (Paths{"/var/lib/flatpak/exports/share", "/usr/share"}));
}

}  // namespace
}  // namespace velmora
