#include "platform/linux/sensors/HwmonValue.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace velmora {
namespace {

TEST(HwmonValueTest, ThousandthsBecomeDegrees) {
    EXPECT_EQ(parseMillidegrees("52250\n"), 52.25);
    EXPECT_EQ(parseMillidegrees("-5000\n"), -5.0);
    EXPECT_EQ(parseMillidegrees("0\n"), 0.0);
}

TEST(HwmonValueTest, TextWithoutItsNewlineMayHaveLostDigits) {
    EXPECT_EQ(parseHwmonValue("52250"), std::nullopt);
}

TEST(HwmonValueTest, AnythingElseIsAbsent) {
    using namespace std::string_view_literals;
    for (const std::string_view text : {""sv, "\n"sv, "5 2\n"sv, " 52\n"sv, "0x10\n"sv, "1.5\n"sv, "\0\n"sv,
                                        "5\n5\n"sv, "99999999999\n"sv, "N/A\n"sv, "\xff\n"sv})
        EXPECT_EQ(parseHwmonValue(text), std::nullopt) << text;
}

TEST(HwmonValueTest, OverlongNumberIsAbsent) {
    std::string text(100000, '5');
    text.push_back('\n');
    EXPECT_EQ(parseHwmonValue(text), std::nullopt);
}

}  // namespace
}  // namespace velmora
