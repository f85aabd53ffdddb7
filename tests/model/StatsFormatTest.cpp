#include "model/StatsFormat.h"

#include "model/ByteStyle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace velmora {
namespace {

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

TEST(StatsFormatRate, JustUnderAThousandIsZeroKilobytes) {
    EXPECT_EQ(StatsFormat::rate(999.9), "0 KB/s");
}
TEST(StatsFormatRate, AThousandIsOneKilobyte) {
    EXPECT_EQ(StatsFormat::rate(1000), "1 KB/s");
}
TEST(StatsFormatRate, JustUnderAMillionRoundsToAThousandKilobytes) {
    EXPECT_EQ(StatsFormat::rate(999999), "1000 KB/s");
}
TEST(StatsFormatRate, AMillionIsOneMegabyte) {
    EXPECT_EQ(StatsFormat::rate(1e6), "1.0 MB/s");
}
TEST(StatsFormatRate, ABillionIsOneGigabyte) {
    EXPECT_EQ(StatsFormat::rate(1e9), "1.00 GB/s");
}
TEST(StatsFormatRate, NegativeIsZeroKilobytes) {
    EXPECT_EQ(StatsFormat::rate(-1), "0 KB/s");
    EXPECT_EQ(StatsFormat::rate(-5e9), "0 KB/s");
}
TEST(StatsFormatRate, NotANumberIsZeroKilobytes) {
    EXPECT_EQ(StatsFormat::rate(kNotANumber), "0 KB/s");
}
TEST(StatsFormatRate, InBetweenHasTheDecimalsOfItsUnit) {
    EXPECT_EQ(StatsFormat::rate(0), "0 KB/s");
    EXPECT_EQ(StatsFormat::rate(345600), "346 KB/s");
    EXPECT_EQ(StatsFormat::rate(3456000), "3.5 MB/s");
    EXPECT_EQ(StatsFormat::rate(2345678901.0), "2.35 GB/s");
    EXPECT_EQ(StatsFormat::rate(1.5e12), "1500.00 GB/s");
}
TEST(StatsFormatRate, JustUnderABillionRoundsToAThousandMegabytes) {
    EXPECT_EQ(StatsFormat::rate(999'999'999), "1000.0 MB/s");
}
TEST(StatsFormatRate, HalvesRoundToTheEvenNeighbourAsTheFormatDoes) {
    EXPECT_EQ(StatsFormat::rate(2500), "2 KB/s");
    EXPECT_EQ(StatsFormat::rate(3500), "4 KB/s");
}

TEST(StatsFormatShortRate, JustUnderAHundredMillionReachesAFullHundredWithItsDecimal) {
    EXPECT_EQ(StatsFormat::shortRate(99950000), "100.0M");
}
TEST(StatsFormatShortRate, AHundredMillionLosesItsDecimal) {
    EXPECT_EQ(StatsFormat::shortRate(1e8), "100M");
}
TEST(StatsFormatShortRate, UnderAThousandNegativeAndNotANumberAreZero) {
    EXPECT_EQ(StatsFormat::shortRate(999.9), "0K");
    EXPECT_EQ(StatsFormat::shortRate(-1), "0K");
    EXPECT_EQ(StatsFormat::shortRate(kNotANumber), "0K");
}
TEST(StatsFormatShortRate, JustUnderABillionRoundsToAThousandMillions) {
    EXPECT_EQ(StatsFormat::shortRate(999'999'999), "1000M");
}
TEST(StatsFormatShortRate, HalvesRoundToTheEvenNeighbourAsTheFormatDoes) {
    EXPECT_EQ(StatsFormat::shortRate(2500), "2K");
    EXPECT_EQ(StatsFormat::shortRate(3500), "4K");
}
TEST(StatsFormatShortRate, EachStepHasItsForm) {
    EXPECT_EQ(StatsFormat::shortRate(1000), "1K");
    EXPECT_EQ(StatsFormat::shortRate(12345), "12K");
    EXPECT_EQ(StatsFormat::shortRate(999999), "1000K");
    EXPECT_EQ(StatsFormat::shortRate(1e6), "1.0M");
    EXPECT_EQ(StatsFormat::shortRate(3.4e6), "3.4M");
    EXPECT_EQ(StatsFormat::shortRate(120e6), "120M");
    EXPECT_EQ(StatsFormat::shortRate(1e9), "1.0G");
    EXPECT_EQ(StatsFormat::shortRate(1.23e9), "1.2G");
}

TEST(StatsFormatUptime, UnderAMinuteIsZeroMinutes) {
    EXPECT_EQ(StatsFormat::uptime(0), "0m");
    EXPECT_EQ(StatsFormat::uptime(59), "0m");
}
TEST(StatsFormatUptime, AnHourHasZeroMinutes) {
    EXPECT_EQ(StatsFormat::uptime(3600), "1h 0m");
}
TEST(StatsFormatUptime, ADayHasZeroHoursAndMinutes) {
    EXPECT_EQ(StatsFormat::uptime(86400), "1d 0h 0m");
}
TEST(StatsFormatUptime, FractionsOfASecondAreCut) {
    EXPECT_EQ(StatsFormat::uptime(59.999), "0m");
    EXPECT_EQ(StatsFormat::uptime(3599.999), "59m");
    EXPECT_EQ(StatsFormat::uptime(86399.999), "23h 59m");
}
TEST(StatsFormatUptime, HoursAreOfTheDayAndMinutesOfTheHour) {
    EXPECT_EQ(StatsFormat::uptime(2 * 86400 + 4 * 3600 + 10 * 60 + 59), "2d 4h 10m");
    EXPECT_EQ(StatsFormat::uptime(400 * 86400.0), "400d 0h 0m");
}

TEST(StatsFormatUptime, NegativeAndNotFiniteSecondsAreNone) {
    EXPECT_EQ(StatsFormat::uptime(-3600), "0m");
    EXPECT_EQ(StatsFormat::uptime(kNotANumber), "0m");
    EXPECT_EQ(StatsFormat::uptime(kInfinite), "0m");
    EXPECT_EQ(StatsFormat::uptime(-kInfinite), "0m");
}

TEST(StatsFormatBytes, NoBytesAreZeroKilobytes) {
    EXPECT_EQ(StatsFormat::bytes(0), "Zero KB");
}
TEST(StatsFormatBytes, UnderAThousandAreCounted) {
    EXPECT_EQ(StatsFormat::bytes(1), "1 byte");
    EXPECT_EQ(StatsFormat::bytes(2), "2 bytes");
    EXPECT_EQ(StatsFormat::bytes(999), "999 bytes");
}
TEST(StatsFormatBytes, KilobytesHaveNoDecimals) {
    EXPECT_EQ(StatsFormat::bytes(1000), "1 KB");
    EXPECT_EQ(StatsFormat::bytes(1400), "1 KB");
    EXPECT_EQ(StatsFormat::bytes(345678), "346 KB");
}
TEST(StatsFormatBytes, MegabytesHaveOneDecimalUnlessItIsZero) {
    EXPECT_EQ(StatsFormat::bytes(1e6), "1 MB");
    EXPECT_EQ(StatsFormat::bytes(1.26e6), "1.3 MB");
    EXPECT_EQ(StatsFormat::bytes(345.678e6), "345.7 MB");
}
TEST(StatsFormatBytes, GigabytesAndMoreHaveTwoDecimalsWithoutZerosAtTheEnd) {
    EXPECT_EQ(StatsFormat::bytes(1e9), "1 GB");
    EXPECT_EQ(StatsFormat::bytes(1.5e9), "1.5 GB");
    EXPECT_EQ(StatsFormat::bytes(494.38e9), "494.38 GB");
    EXPECT_EQ(StatsFormat::bytes(2e12), "2 TB");
    EXPECT_EQ(StatsFormat::bytes(3.14159e15), "3.14 PB");
    EXPECT_EQ(StatsFormat::bytes(9.2e18), "9.2 EB");
}
TEST(StatsFormatBytes, FigureThatWouldRoundToAThousandTakesTheNextUnit) {
    EXPECT_EQ(StatsFormat::bytes(999'600), "1 MB");
    EXPECT_EQ(StatsFormat::bytes(999'960'000), "1 GB");
    EXPECT_EQ(StatsFormat::bytes(999'996'000'000), "1 TB");
}
TEST(StatsFormatBytes, FractionOfAByteIsCut) {
    EXPECT_EQ(StatsFormat::bytes(999.9), "999 bytes");
}
TEST(StatsFormatBytes, NegativeTotalHasASign) {
    EXPECT_EQ(StatsFormat::bytes(-1.5e9), "-1.5 GB");
}
TEST(StatsFormatBytes, NothingBreaksAtTheEndsOfTheRange) {
    EXPECT_EQ(StatsFormat::bytes(kNotANumber), "Zero KB");
    EXPECT_EQ(StatsFormat::bytes(kInfinite), "9.22 EB");
    EXPECT_EQ(StatsFormat::bytes(18446744073709551615.0), "9.22 EB");
}

// A language that no one speaks, each of whose signs can be told from the others.
constexpr ByteStyle kInvented = {
    .decimalSeparator = "'",
    .zero = "nought",
    .byteGap = "_",
    .byteNames = {"uno", "pauci", "multi"},
    .byteForm =
        [](int count) { return count == 1  ? ByteForm::one
                               : count < 5 ? ByteForm::few
                                           : ByteForm::many; },
    .unitGap = "~",
    .unitNames = {"k", "m", "g", "t", "p", "e"},
};

TEST(StatsFormatStyledBytes, NoBytesAreTheStylesZero) {
    EXPECT_EQ(StatsFormat::bytes(0, kInvented), "nought");
    EXPECT_EQ(StatsFormat::bytes(-0.5, kInvented), "nought");
    EXPECT_EQ(StatsFormat::bytes(kNotANumber, kInvented), "nought");
}
TEST(StatsFormatStyledBytes, CountUnderAThousandTakesTheFormOfItsWholeNumber) {
    EXPECT_EQ(StatsFormat::bytes(1.9, kInvented), "1_uno");
    EXPECT_EQ(StatsFormat::bytes(4, kInvented), "4_pauci");
    EXPECT_EQ(StatsFormat::bytes(999.9, kInvented), "999_multi");
}
TEST(StatsFormatStyledBytes, NegativeCountTakesTheFormOfItsSize) {
    EXPECT_EQ(StatsFormat::bytes(-1, kInvented), "-1_uno");
    EXPECT_EQ(StatsFormat::bytes(-1.5e9, kInvented), "-1'5~g");
}
TEST(StatsFormatStyledBytes, EachUnitHasItsNameGapAndSeparator) {
    EXPECT_EQ(StatsFormat::bytes(345678, kInvented), "346~k");
    EXPECT_EQ(StatsFormat::bytes(1.26e6, kInvented), "1'3~m");
    EXPECT_EQ(StatsFormat::bytes(494.38e9, kInvented), "494'38~g");
    EXPECT_EQ(StatsFormat::bytes(2.5e12, kInvented), "2'5~t");
    EXPECT_EQ(StatsFormat::bytes(3.14159e15, kInvented), "3'14~p");
    EXPECT_EQ(StatsFormat::bytes(kInfinite, kInvented), "9'22~e");
}
TEST(StatsFormatStyledBytes, WholeFigureHasNoSeparatorAndKeepsItsOwnZeros) {
    EXPECT_EQ(StatsFormat::bytes(100e3, kInvented), "100~k");
    EXPECT_EQ(StatsFormat::bytes(100e6, kInvented), "100~m");
    EXPECT_EQ(StatsFormat::bytes(100.004e9, kInvented), "100~g");
}
TEST(StatsFormatStyledBytes, FigureThatWouldRoundToAThousandTakesTheNextUnit) {
    EXPECT_EQ(StatsFormat::bytes(999'600, kInvented), "1~m");
    EXPECT_EQ(StatsFormat::bytes(999'996'000'000, kInvented), "1~t");
}
TEST(StatsFormatStyledBytes, WithoutAStyleTheTextIsEnglish) {
    for (const double count : {0.0, 1.0, 2.0, 512.0, 1000.0, 1.5e6, 2.25e9, -3e12}) {
        EXPECT_EQ(StatsFormat::bytes(count), StatsFormat::bytes(count, kEnglishByteStyle));
    }
}

TEST(StatsFormatPercent, FractionIsHeldWithinZeroAndAHundred) {
    EXPECT_EQ(StatsFormat::percent(-0.5), "0%");
    EXPECT_EQ(StatsFormat::percent(0), "0%");
    EXPECT_EQ(StatsFormat::percent(0.424), "42%");
    EXPECT_EQ(StatsFormat::percent(1), "100%");
    EXPECT_EQ(StatsFormat::percent(7), "100%");
    EXPECT_EQ(StatsFormat::percent(kInfinite), "100%");
}
TEST(StatsFormatPercent, HalvesRoundToTheEvenNeighbourAsTheFormatDoes) {
    EXPECT_EQ(StatsFormat::percent(0.125), "12%");
    EXPECT_EQ(StatsFormat::percent(0.375), "38%");
}
TEST(StatsFormatPercent, NotANumberIsZero) {
    EXPECT_EQ(StatsFormat::percent(kNotANumber), "0%");
}

TEST(StatsFormatAbsent, DashStandsForAnAbsentFigure) {
    EXPECT_EQ(StatsFormat::kAbsent, "\u2014");
}

}  // namespace
}  // namespace velmora
