#include "platform/linux/desktop/DesktopEntryValue.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using List = std::vector<std::string>;

TEST(DesktopEntryValue, EscapesStandForWhatCannotBeWritten) {
    EXPECT_EQ(DesktopEntryValue::text(R"(a\sb\nc\td\re\\f)"), "a b\nc\td\re\\f");
}

TEST(DesktopEntryValue, EscapedBackslashDoesNotEscapeTheNextLetter) {
    EXPECT_EQ(DesktopEntryValue::text(R"(a\\nb)"), "a\\nb");
}

TEST(DesktopEntryValue, UnknownEscapeStaysAsItIs) {
    EXPECT_EQ(DesktopEntryValue::text(R"(sh -c \"x\" \$y)"), R"(sh -c \"x\" \$y)");
}

TEST(DesktopEntryValue, BackslashAtTheEndStays) {
    EXPECT_EQ(DesktopEntryValue::text("a\\"), "a\\");
    EXPECT_EQ(DesktopEntryValue::text(""), "");
}

TEST(DesktopEntryValue, ListIsCutAtSemicolons) {
    EXPECT_EQ(DesktopEntryValue::list("GNOME;GTK;System;"), (List{"GNOME", "GTK", "System"}));
    EXPECT_EQ(DesktopEntryValue::list("GNOME"), List{"GNOME"});
}

TEST(DesktopEntryValue, EscapedSemicolonBelongsToItsElement) {
    EXPECT_EQ(DesktopEntryValue::list(R"(a\;b;c\\;d)"), (List{"a;b", "c\\", "d"}));
}

TEST(DesktopEntryValue, EmptyElementsAreLeftOut) {
    EXPECT_EQ(DesktopEntryValue::list(";;a;;"), List{"a"});
    EXPECT_EQ(DesktopEntryValue::list(""), List());
}

TEST(DesktopEntryValue, OnlyTrueAndOneAreTrue) {
    EXPECT_TRUE(DesktopEntryValue::isTrue("true"));
    EXPECT_TRUE(DesktopEntryValue::isTrue("1"));
    for (const char* other : {"false", "0", "", "True", "yes", "true;"})
        EXPECT_FALSE(DesktopEntryValue::isTrue(other)) << other;
}

}  // namespace
}  // namespace velmora
