#include "platform/linux/files/UserDirs.h"

#include <gtest/gtest.h>

#include <string>

namespace velmora {
namespace {

using Folders = std::map<std::string, std::filesystem::path, std::less<>>;

TEST(UserDirs, PathsFromTheHomeAndTheRootAreRead) {
    EXPECT_EQ(parseUserDirs(
                  "# comment\nXDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\nXDG_DOWNLOAD_DIR=\"/data/down loads\"\n",
                  "/home/ada"),
              (Folders{{"DOCUMENTS", "/home/ada/Dokumente"}, {"DOWNLOAD", "/data/down loads"}}));
}

TEST(UserDirs, FolderThatIsSwitchedOffIsTheHomeItself) {
    for (const std::string value : {"\"$HOME/\"", "\"$HOME\"", "\"$HOME//\""}) {
        const auto folders = parseUserDirs("XDG_DESKTOP_DIR=" + value + "\n", "/home/ada");
        EXPECT_EQ(folders.at("DESKTOP").lexically_normal().string().substr(0, 9), "/home/ada") << value;
        EXPECT_LE(folders.at("DESKTOP").string().size(), std::string("/home/ada/").size()) << value;
    }
}

TEST(UserDirs, SlashesBehindTheHomeDoNotLeaveIt) {
    EXPECT_EQ(parseUserDirs("XDG_DESKTOP_DIR=\"$HOME//etc\"\n", "/home/ada"),
              (Folders{{"DESKTOP", "/home/ada/etc"}}));
}

TEST(UserDirs, BackslashTakesTheMeaningFromTheNextLetter) {
    EXPECT_EQ(parseUserDirs("XDG_DESKTOP_DIR=\"$HOME/a\\\"b\\\\c\"\n", "/h"),
              (Folders{{"DESKTOP", "/h/a\"b\\c"}}));
}

TEST(UserDirs, LastLineOfAKeyCounts) {
    EXPECT_EQ(parseUserDirs("XDG_DESKTOP_DIR=\"/a\"\n XDG_DESKTOP_DIR=\"/b\"", "/h"),
              (Folders{{"DESKTOP", "/b"}}));
}

TEST(UserDirs, MalformedLinesAreLeftOut) {
    for (const std::string& text :
         {std::string(), std::string("XDG_DESKTOP_DIR"), std::string("XDG_DESKTOP_DIR="),
          std::string("XDG_DESKTOP_DIR=/plain"), std::string("XDG_DESKTOP_DIR=\"/open"),
          std::string("XDG_DESKTOP_DIR=\"relative\""), std::string("XDG_DESKTOP_DIR=\"$HOMER/x\""),
          std::string("XDG_DESKTOP_DIR=\"\""), std::string("XDG__DIR=\"/x\""), std::string("DESKTOP=\"/x\""),
          std::string(5000, '\0'), std::string("\xFF=\"\xFE\"")})
        EXPECT_TRUE(parseUserDirs(text, "/h").empty()) << text;
}

}  // namespace
}  // namespace velmora
