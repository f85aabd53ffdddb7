#include "platform/linux/machines/FigureDifferences.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace velmora {
namespace {

using nlohmann::json;

std::string differences(const char* expected, const char* found) {
    return figureDifferences(json::parse(expected), json::parse(found));
}

TEST(FigureDifferencesTest, SameFiguresDifferNowhere) {
    EXPECT_EQ(differences(R"({"a": [1, {"b": "x"}], "c": {}})", R"({"c": {}, "a": [1, {"b": "x"}]})"), "");
}

TEST(FigureDifferencesTest, OtherFigureIsNamedByItsPlace) {
    EXPECT_EQ(differences(R"({"cpu": {"perCore": [0, 0.5]}})", R"({"cpu": {"perCore": [0, 0.25]}})"),
              "cpu.perCore[1]: expected 0.5, found 0.25\n");
}

TEST(FigureDifferencesTest, EachDifferenceHasItsLine) {
    EXPECT_EQ(differences(R"({"a": 1, "b": 2, "c": 3})", R"({"a": 0, "b": 2, "c": 4})"),
              "a: expected 1, found 0\nc: expected 3, found 4\n");
}

TEST(FigureDifferencesTest, MissingAndUnexpectedFieldsDiffer) {
    EXPECT_EQ(differences(R"({"rssi": -57})", R"({"ssid": "Home"})"),
              "rssi: expected -57, found nothing\nssid: expected nothing, found \"Home\"\n");
}

TEST(FigureDifferencesTest, ListsOfOtherLengthsDiffer) {
    EXPECT_EQ(differences("[1]", "[1, 2]"), "[1]: expected nothing, found 2\n");
    EXPECT_EQ(differences("[[], 3]", "[[]]"), "[1]: expected 3, found nothing\n");
}

TEST(FigureDifferencesTest, OtherTypesDiffer) {
    EXPECT_NE(differences("[]", "{}"), "");
    EXPECT_NE(differences("[]", "null"), "");
    EXPECT_NE(differences("false", "0"), "");
    EXPECT_NE(differences("\"1\"", "1"), "");
}

TEST(FigureDifferencesTest, LargeWholeNumbersAreComparedToTheLastDigit) {
    EXPECT_EQ(differences("18446744073709551615", "18446744073709551615"), "");
    EXPECT_NE(differences("9007199254740993", "9007199254740992"), "");
}

TEST(FigureDifferencesTest, FractionsMayDifferInTheirTenthDigit) {
    EXPECT_EQ(differences("0.3", "0.30000000000000004"), "");
    EXPECT_EQ(differences("60", "60.0"), "");
    EXPECT_NE(differences("0.3", "0.3000001"), "");
    EXPECT_NE(differences("0", "1e-30"), "");
}

}  // namespace
}  // namespace velmora
