#include "platform/linux/desktop/PreferredTerminals.h"

#include "platform/linux/desktop/DesktopTree.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Ids = std::vector<std::string>;

TEST(PreferredTerminals, ListNamesEntriesLineByLine) {
    EXPECT_EQ(parseTerminalList("org.kde.konsole.desktop\n  xterm.desktop \n"),
              (Ids{"org.kde.konsole", "xterm"}));
}

TEST(PreferredTerminals, FurtherActionOfAnEntryDoesNotCount) {
    EXPECT_EQ(parseTerminalList("foot.desktop:new-window\n"), Ids{"foot"});
}

TEST(PreferredTerminals, CommentsExclusionsAndInstructionsAreNoTerminals) {
    EXPECT_EQ(
        parseTerminalList("# a.desktop\n-b.desktop\n+c.desktop\n/execarg_default:d.desktop:-e\n\ne.desktop"),
        Ids{"e"});
}

TEST(PreferredTerminals, OtherTextIsNoTerminal) {
    EXPECT_EQ(parseTerminalList(""), Ids());
    EXPECT_EQ(parseTerminalList("xterm\n.desktop\n:x.desktop\n"), Ids());
}

TEST(PreferredTerminals, UsersFilesComeFirstAndThoseOfTheDesktopBeforeTheOthers) {
    DesktopTree tree;
    tree.files().write("home/ada/.config/xdg-terminals.list", "user.desktop\n");
    tree.files().write("home/ada/.config/gnome-xdg-terminals.list", "user-gnome.desktop\n");
    tree.files().write("etc/xdg/xdg-terminals.list", "admin.desktop\n");
    tree.files().write("usr/share/xdg-terminal-exec/xdg-terminals.list", "vendor.desktop\n");
    tree.files().write("usr/share/xdg-terminal-exec/kde-xdg-terminals.list", "plasma.desktop\n");
    EXPECT_EQ(preferredTerminals(tree.surroundings({"ubuntu", "GNOME"})),
              (Ids{"user-gnome", "user", "admin", "vendor"}));
}

TEST(PreferredTerminals, WithoutFilesThereAreNone) {
    DesktopTree tree;
    tree.files().write("etc/xdg/xdg-terminals.list/inside", "a folder");
    EXPECT_EQ(preferredTerminals(tree.surroundings({"GNOME"})), Ids());
    EXPECT_EQ(preferredTerminals(tree.surroundings({"../../etc/evil", ""})), Ids());
}

}  // namespace
}  // namespace velmora
