#include "platform/qt/desktop/KeyFileText.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(KeyFileText, ValueIsFoundInItsGroupOnly) {
    const std::string_view text = "[A]\nkey=1\n[B]\nkey=2\n";
    EXPECT_EQ(keyFileValue(text, "A", "key"), "1");
    EXPECT_EQ(keyFileValue(text, "B", "key"), "2");
    EXPECT_EQ(keyFileValue(text, "C", "key"), std::nullopt);
    EXPECT_EQ(keyFileValue(text, "A", "other"), std::nullopt);
}

TEST(KeyFileText, GroupWithASubgroupIsAnotherGroup) {
    EXPECT_EQ(keyFileValue("[Colors:Window][Inactive]\nBackgroundNormal=1,2,3\n", "Colors:Window",
                           "BackgroundNormal"),
              std::nullopt);
}

TEST(KeyFileText, BlanksCommentsAndCarriageReturnsAreNoPart) {
    EXPECT_EQ(keyFileValue("# [A]\n[A]\r\n # key=0\n key = some value \r\n", "A", "key"), "some value");
}

TEST(KeyFileText, LastOfSeveralValuesCounts) {
    EXPECT_EQ(keyFileValue("[A]\nkey=1\nkey=2\n", "A", "key"), "2");
}

TEST(KeyFileText, MalformedLinesAreSkipped) {
    EXPECT_EQ(keyFileValue("[A\nkey=1\n]\n[]\n[A]\nkey\n=\nkey=3", "A", "key"), "3");
    EXPECT_EQ(keyFileValue("", "A", "key"), std::nullopt);
}

TEST(KeyFileText, ColorIsWrittenInDecimalsOrInHexadecimals) {
    EXPECT_DOUBLE_EQ(lightnessOfColorText("0,0,0").value(), 0);
    EXPECT_DOUBLE_EQ(lightnessOfColorText("255,255,255").value(), 1);
    EXPECT_DOUBLE_EQ(lightnessOfColorText("#ffffff").value(), 1);
    EXPECT_DOUBLE_EQ(lightnessOfColorText("255, 0, 0, 128").value(), 0.299);
    EXPECT_DOUBLE_EQ(lightnessOfColorText("#00FF00").value(), 0.587);
}

TEST(KeyFileText, WhatIsNoColorHasNoLightness) {
    for (const char* text : {"", "1,2", "256,0,0", "-1,0,0", "a,b,c", "#12345", "#gggggg", "1,,3"}) {
        EXPECT_EQ(lightnessOfColorText(text), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace velmora
