#include "platform/linux/desktop/DesktopEntryLines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmora {
namespace {

/// "group/key[locale]=value" for each key.
std::vector<std::string> keys(std::string_view text) {
    std::vector<std::string> found;
    DesktopEntryLines lines(text);
    while (lines.next()) {
        std::string line = std::string(lines.group()) + "/" + std::string(lines.key());
        if (!lines.locale().empty()) line += "[" + std::string(lines.locale()) + "]";
        found.push_back(line + "=" + std::string(lines.value()));
    }
    return found;
}

using Keys = std::vector<std::string>;

TEST(DesktopEntryLines, KeysBelongToTheGroupAboveThem) {
    EXPECT_EQ(keys("[A]\nX=1\n[B]\nX=2\n"), (Keys{"A/X=1", "B/X=2"}));
}

TEST(DesktopEntryLines, LocaleStandsInBrackets) {
    EXPECT_EQ(keys("[A]\nName[de_DE@euro]=Uhr\n"), (Keys{"A/Name[de_DE@euro]=Uhr"}));
}

TEST(DesktopEntryLines, BlanksAroundTheEqualSignDoNotCount) {
    EXPECT_EQ(keys("[A]\n Name \t=  Two words \n"), (Keys{"A/Name=Two words"}));
}

TEST(DesktopEntryLines, ValueMayHoldEqualSignsAndBrackets) {
    EXPECT_EQ(keys("[A]\nExec=env X=[1] b\n"), (Keys{"A/Exec=env X=[1] b"}));
}

TEST(DesktopEntryLines, ValueMayBeEmpty) {
    EXPECT_EQ(keys("[A]\nX=\n"), (Keys{"A/X="}));
}

TEST(DesktopEntryLines, CommentsAndBlankLinesAreNoKeys) {
    EXPECT_EQ(keys("# Top=1\n\n[A]\n#X=1\n \nY=2"), (Keys{"A/Y=2"}));
}

TEST(DesktopEntryLines, KeysAboveTheFirstGroupDoNotCount) {
    EXPECT_EQ(keys("X=1\n[A]\nY=2\n"), (Keys{"A/Y=2"}));
}

TEST(DesktopEntryLines, MalformedLinesAreLeftOut) {
    EXPECT_EQ(keys("[A]\nno sign\n=value\nName[=x\nName[]=x\nY=2\n"), (Keys{"A/Y=2"}));
}

TEST(DesktopEntryLines, KeysBelowAMalformedGroupDoNotCount) {
    EXPECT_EQ(keys("[A]\nX=1\n[B\nY=2\n[C]\nZ=3\n"), (Keys{"A/X=1", "C/Z=3"}));
}

TEST(DesktopEntryLines, LineEndsOfOtherSystemsAndAByteOrderMarkDoNotCount) {
    EXPECT_EQ(keys("\xEF\xBB\xBF[A]\r\nX=1\r\n"), (Keys{"A/X=1"}));
}

TEST(DesktopEntryLines, EmptyTextHasNoKeys) {
    EXPECT_EQ(keys(""), Keys());
    EXPECT_EQ(keys("["), Keys());
    EXPECT_EQ(keys("[]\nX=1"), Keys());
}

}  // namespace
}  // namespace velmora
