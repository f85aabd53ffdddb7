#include "platform/linux/desktop/AutostartLoginItem.h"

#include "platform/linux/files/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmora {
namespace {

class AutostartLoginItemTest : public ::testing::Test {
protected:
    AutostartLoginItem item(const std::string& executable = "/usr/bin/velmora") const {
        return AutostartLoginItem({"com.torvane.Velmora",
                                   executable,
                                   folder.path() / "config" / "autostart",
                                   {folder.path() / "system" / "autostart"}});
    }
    std::filesystem::path entry() const {
        return folder.path() / "config/autostart/com.torvane.Velmora.desktop";
    }
    /// The value of a key in the entry; empty without one.
    std::string value(const std::string& key) const {
        const std::string contents = "\n" + TemporaryFolder::contentsOf(entry());
        const auto at = contents.find("\n" + key + "=");
        if (at == std::string::npos) return "";
        const auto begin = at + key.size() + 2;
        return contents.substr(begin, contents.find('\n', begin) - begin);
    }

    TemporaryFolder folder;
};

TEST_F(AutostartLoginItemTest, RegisteringWritesAnEntryWithTheAbsolutePath) {
    EXPECT_EQ(item().registerItem(), std::nullopt);
    EXPECT_TRUE(TemporaryFolder::contentsOf(entry()).starts_with("[Desktop Entry]\n"));
    EXPECT_EQ(value("Type"), "Application");
    EXPECT_EQ(value("Name"), "Velmora");
    EXPECT_EQ(value("Exec"), "\"/usr/bin/velmora\"");
    EXPECT_EQ(value("Hidden"), "");
}

TEST_F(AutostartLoginItemTest, PathWithSpecialCharactersIsQuotedTwice) {
    EXPECT_EQ(item("/home/a b/$x`\"\\/100%/velmora").registerItem(), std::nullopt);
    EXPECT_EQ(value("Exec"), R"("/home/a b/\\$x\\`\\"\\\\/100%%/velmora")");
}

TEST_F(AutostartLoginItemTest, RegisteringTwiceLeavesOneEntryAndNoOtherFile) {
    EXPECT_EQ(item("/old/velmora").registerItem(), std::nullopt);
    EXPECT_EQ(item("/new/velmora").registerItem(), std::nullopt);
    EXPECT_EQ(value("Exec"), "\"/new/velmora\"");
    EXPECT_EQ(folder.names("config/autostart"), std::vector<std::string>{"com.torvane.Velmora.desktop"});
}

TEST_F(AutostartLoginItemTest, UnregisteringRemovesTheEntry) {
    item().registerItem();
    EXPECT_EQ(item().unregisterItem(), std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(entry()));
}

TEST_F(AutostartLoginItemTest, UnregisteringWithoutAnEntryIsNoError) {
    EXPECT_EQ(item().unregisterItem(), std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(entry()));
}

TEST_F(AutostartLoginItemTest, UnregisteringHidesAnEntryOfTheSystem) {
    folder.write("system/autostart/com.torvane.Velmora.desktop", "[Desktop Entry]\n");
    EXPECT_EQ(item().unregisterItem(), std::nullopt);
    EXPECT_EQ(value("Hidden"), "true");
}

TEST_F(AutostartLoginItemTest, RegisteringEndsTheHiding) {
    folder.write("system/autostart/com.torvane.Velmora.desktop", "[Desktop Entry]\n");
    item().unregisterItem();
    EXPECT_EQ(item().registerItem(), std::nullopt);
    EXPECT_EQ(value("Hidden"), "");
    EXPECT_EQ(value("Exec"), "\"/usr/bin/velmora\"");
}

TEST_F(AutostartLoginItemTest, FailureIsASentence) {
    folder.write("config", "a file where the folder should be");
    const auto problem = item().registerItem();
    ASSERT_TRUE(problem);
    EXPECT_EQ(*problem, "Cannot write the autostart entry " + entry().native() + ": Not a directory.");
}

TEST_F(AutostartLoginItemTest, EntryThatCannotBeRemovedIsASentence) {
    std::filesystem::create_directories(entry() / "inside");
    const auto problem = item().unregisterItem();
    ASSERT_TRUE(problem);
    EXPECT_TRUE(problem->starts_with("Cannot remove the autostart entry ")) << *problem;
}

TEST_F(AutostartLoginItemTest, UnknownExecutableIsASentenceAndWritesNothing) {
    EXPECT_EQ(item("").registerItem(), "The path of the running program is not known.");
    EXPECT_FALSE(std::filesystem::exists(entry()));
}

}  // namespace
}  // namespace velmora
