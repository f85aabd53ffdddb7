#include "panels/FigureText.h"

#include "model/ByteStyle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace velmora::FigureText {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(FigureText, BytesAreThoseOfTheLanguage) {
    EXPECT_EQ(bytes(1'500'000, kEnglishByteStyle), "1.5 MB");
    ByteStyle style = kEnglishByteStyle;
    style.decimalSeparator = ",";
    EXPECT_EQ(bytes(1'500'000, style), "1,5 MB");
}

TEST(FigureText, SizesThatAreNoneCountAsZero) {
    EXPECT_EQ(bytes(-1, kEnglishByteStyle), "Zero KB");
    EXPECT_EQ(bytes(std::nan(""), kEnglishByteStyle), "Zero KB");
    EXPECT_EQ(bytes(kInfinity, kEnglishByteStyle), "Zero KB");
    EXPECT_EQ(bytes(-kInfinity, kEnglishByteStyle), "Zero KB");
}

TEST(FigureText, CelsiusHasOneDecimalAndTheUnit) {
    EXPECT_EQ(celsius(56.44), "56.4 °C");
    EXPECT_EQ(celsius(0), "0.0 °C");
    EXPECT_EQ(celsius(-5.25), "-5.2 °C");
}

TEST(FigureText, DegreesAreWholeAndHaveNoLetter) {
    EXPECT_EQ(degrees(56.5001), "57°");
    EXPECT_EQ(degrees(100), "100°");
}

TEST(FigureText, ATemperatureThatIsNoNumberIsAbsent) {
    EXPECT_EQ(celsius(std::nan("")), "—");
    EXPECT_EQ(celsius(kInfinity), "—");
    EXPECT_EQ(degrees(std::nan("")), "—");
}

TEST(FigureText, SpokenFiguresStandBehindTheirLabels) {
    EXPECT_EQ(spoken({{"User", "29%"}, {"System", "13%"}}), "User 29%, System 13%");
    EXPECT_EQ(spoken({{"", "80%"}, {"", "Battery"}}), "80%, Battery");
    EXPECT_EQ(spoken({}), "");
}

}  // namespace
}  // namespace velmora::FigureText
