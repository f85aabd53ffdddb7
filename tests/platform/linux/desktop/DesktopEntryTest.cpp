#include "platform/linux/desktop/DesktopEntry.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Words = std::vector<std::string>;

std::optional<DesktopEntry> parse(std::string_view lines, const std::vector<std::string>& tags = {}) {
    return parseDesktopEntry("[Desktop Entry]\nType=Application\n" + std::string(lines),
                             DesktopEntryLocales(tags));
}

TEST(DesktopEntry, EveryKeyOfUseIsRead) {
    const auto entry = parse(
        "Name=Disks\nExec=disks --tray %U\nTryExec=disks\nIcon=org.example.Disks\nPath=/opt/disks\n"
        "StartupWMClass=Disks\nCategories=System;Monitor;\nOnlyShowIn=GNOME;\nNotShowIn=KDE;XFCE;\n"
        "NoDisplay=true\nDBusActivatable=true\nTerminal=true\n");
    DesktopEntry expected;
    expected.name = "Disks";
    expected.command = {"disks", "--tray"};
    expected.tryExec = "disks";
    expected.icon = "org.example.Disks";
    expected.folder = "/opt/disks";
    expected.windowClass = "Disks";
    expected.categories = {"System", "Monitor"};
    expected.onlyShowIn = {"GNOME"};
    expected.notShowIn = {"KDE", "XFCE"};
    expected.isInMenus = false;
    expected.isBusActivatable = true;
    expected.runsInTerminal = true;
    EXPECT_EQ(entry, expected);
}

TEST(DesktopEntry, NameIsInTheUsersLanguage) {
    const char* lines = "Name[de]=Laufwerke\nName=Disks\nName[sv]=Diskar\nExec=x\n";
    EXPECT_EQ(parse(lines, {"de-DE"})->name, "Laufwerke");
    EXPECT_EQ(parse(lines, {"sv-SE", "de-DE"})->name, "Diskar");
    EXPECT_EQ(parse(lines, {"fr-FR"})->name, "Disks");
    EXPECT_EQ(parse(lines)->name, "Disks");
}

TEST(DesktopEntry, EmptyTranslationDoesNotCount) {
    EXPECT_EQ(parse("Name=Disks\nName[de]=\nExec=x\n", {"de-DE"})->name, "Disks");
}

TEST(DesktopEntry, TranslationsOfOtherKeysDoNotCount) {
    EXPECT_EQ(parse("Name=a\nIcon=plain\nIcon[de]=other\nExec=x\n", {"de"})->icon, "plain");
}

TEST(DesktopEntry, LaterOfTwoEqualKeysCounts) {
    EXPECT_EQ(parse("Name=a\nName=b\nExec=x\nExec=y\n")->name, "b");
    EXPECT_EQ(parse("Name=a\nExec=x\nExec=y\n")->command, Words{"y"});
}

TEST(DesktopEntry, NameHasNoControlCharactersAndIsValid) {
    EXPECT_EQ(parse("Name=a\\nb\\tc\nExec=x\n")->name, "a b c");
    EXPECT_EQ(parse("Name=a\x01\x7F"
                    "b\xFF\nExec=x\n")
                  ->name,
              "a  b\uFFFD");
}

TEST(DesktopEntry, NameOfAnyScriptAndLengthIsKept) {
    const std::string longName(200, 'n');
    EXPECT_EQ(parse("Name=" + longName + "\nExec=x\n")->name, longName);
    EXPECT_EQ(parse("Name=مراقب النظام 🧹\nExec=x\n")->name, "مراقب النظام 🧹");
}

TEST(DesktopEntry, CommandHasTheNameInTheUsersLanguage) {
    EXPECT_EQ(parse("Name=Disks\nName[de]=Laufwerke\nExec=x -t %c\n", {"de"})->command,
              (Words{"x", "-t", "Laufwerke"}));
}

TEST(DesktopEntry, CommandIsUnescapedBeforeItIsUnquoted) {
    EXPECT_EQ(parse("Name=a\nExec=x \"a\\\\\\\\b\" \"\\\\$c\"\n")->command, (Words{"x", "a\\b", "$c"}));
}

TEST(DesktopEntry, IconOfTheThemeHasNoEnding) {
    EXPECT_EQ(parse("Name=a\nExec=x\nIcon=gparted.png\n")->icon, "gparted");
    EXPECT_EQ(parse("Name=a\nExec=x\nIcon=org.example.svg.viewer\n")->icon, "org.example.svg.viewer");
}

TEST(DesktopEntry, IconOfAFileIsItsPath) {
    EXPECT_EQ(parse("Name=a\nExec=x\nIcon=/snap/a/1/icon.png\n")->icon, "/snap/a/1/icon.png");
    EXPECT_EQ(parse("Name=a\nExec=x\nIcon=icons/a.png\n")->icon, "");
}

TEST(DesktopEntry, FurtherActionsDoNotCount) {
    const auto entry =
        parse("Name=a\nExec=x\n[Desktop Action new]\nName=b\nExec=y\n[Desktop Entry]\nName=c\n");
    EXPECT_EQ(entry->name, "a");
    EXPECT_EQ(entry->command, Words{"x"});
}

TEST(DesktopEntry, AnotherFirstGroupMakesItNoEntry) {
    EXPECT_EQ(parseDesktopEntry("[Other]\nA=1\n[Desktop Entry]\nType=Application\nName=a\nExec=x\n", {}),
              std::nullopt);
    EXPECT_EQ(parseDesktopEntry("", {}), std::nullopt);
    EXPECT_EQ(parseDesktopEntry("Type=Application\nName=a\nExec=x\n", {}), std::nullopt);
}

TEST(DesktopEntry, OnlyApplicationsCount) {
    EXPECT_EQ(parseDesktopEntry("[Desktop Entry]\nType=Link\nName=a\nExec=x\nURL=y\n", {}), std::nullopt);
    EXPECT_EQ(parseDesktopEntry("[Desktop Entry]\nName=a\nExec=x\n", {}), std::nullopt);
}

TEST(DesktopEntry, ApplicationWithoutANameIsNone) {
    EXPECT_EQ(parse("Exec=x\n"), std::nullopt);
    EXPECT_EQ(parse("Exec=x\nName[fr]=a\n", {"de"}), std::nullopt);
}

TEST(DesktopEntry, ApplicationWithoutAUsableCommandIsNone) {
    EXPECT_EQ(parse("Name=a\n"), std::nullopt);
    EXPECT_EQ(parse("Name=a\nExec=\"x\n"), std::nullopt);
}

TEST(DesktopEntry, ApplicationOfTheBusNeedsNoCommand) {
    const auto entry = parse("Name=a\nDBusActivatable=true\n");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->command, Words());
}

TEST(DesktopEntry, HiddenEntryNeedsNothingElse) {
    const auto entry = parseDesktopEntry("[Desktop Entry]\nHidden=true\n", {});
    ASSERT_TRUE(entry);
    EXPECT_TRUE(entry->isHidden);
}

TEST(DesktopEntry, MalformedLinesLoseOnlyThemselves) {
    const auto entry = parse("Name=a\n???\nIcon\nExec=x\nName[=b\n");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, "a");
    EXPECT_EQ(entry->icon, "");
}

}  // namespace
}  // namespace velmora
