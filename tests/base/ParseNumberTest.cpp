#include "base/ParseNumber.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace velmora {
namespace {

TEST(ParseNumber, WholeTextIsTaken) {
    EXPECT_EQ(parseNumber<int>("42"), 42);
    EXPECT_EQ(parseNumber<int>("-42"), -42);
    EXPECT_EQ(parseNumber<double>("1.5"), 1.5);
    EXPECT_EQ(parseNumber<double>("-2e3"), -2000.0);
}

TEST(ParseNumber, EmptyTextIsNoNumber) {
    EXPECT_EQ(parseNumber<int>(""), std::nullopt);
    EXPECT_EQ(parseNumber<double>(""), std::nullopt);
}

TEST(ParseNumber, TextThatGoesOnBehindTheNumberIsNoNumber) {
    EXPECT_EQ(parseNumber<int>("42kB"), std::nullopt);
    EXPECT_EQ(parseNumber<int>("42 "), std::nullopt);
    EXPECT_EQ(parseNumber<double>("1,5"), std::nullopt);
}

TEST(ParseNumber, BlankOrPlusInFrontIsNoNumber) {
    EXPECT_EQ(parseNumber<int>(" 42"), std::nullopt);
    EXPECT_EQ(parseNumber<int>("+42"), std::nullopt);
}

TEST(ParseNumber, NumberOutOfRangeIsNoNumber) {
    EXPECT_EQ(parseNumber<std::uint8_t>("256"), std::nullopt);
    EXPECT_EQ(parseNumber<std::uint64_t>("18446744073709551615"), 18446744073709551615u);
    EXPECT_EQ(parseNumber<std::uint64_t>("18446744073709551616"), std::nullopt);
    EXPECT_EQ(parseNumber<std::uint64_t>("-1"), std::nullopt);
    EXPECT_EQ(parseNumber<double>("1e999"), std::nullopt);
}

TEST(ParseNumber, BaseCountsForIntegers) {
    EXPECT_EQ(parseNumber<std::uint32_t>("0a84FF", 16), 0x0a84ffu);
    EXPECT_EQ(parseNumber<std::uint32_t>("0x10", 16), std::nullopt);
}

TEST(NextField, FieldsAreTakenOneAfterTheOther) {
    std::string_view text = "  cpu0\t12   7\r";
    EXPECT_EQ(nextField(text), "cpu0");
    EXPECT_EQ(nextField(text), "12");
    EXPECT_EQ(nextField(text), "7");
    EXPECT_EQ(nextField(text), "");
    EXPECT_EQ(nextField(text), "");
}

TEST(NextLine, LinesAreTakenWithoutTheirNewlines) {
    std::string_view text = "first\n\nlast";
    std::vector<std::string> lines;
    while (!text.empty()) lines.emplace_back(nextLine(text));
    EXPECT_EQ(lines, (std::vector<std::string>{"first", "", "last"}));
    EXPECT_EQ(nextLine(text), "");
}

}  // namespace
}  // namespace velmora
