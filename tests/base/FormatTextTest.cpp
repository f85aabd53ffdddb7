#include "base/FormatText.h"

#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace velmora {
namespace {

/// What the C library writes in the present locale.
template <typename... Arguments>
std::string libraryText(const char* format, Arguments... arguments) {
    std::array<char, 2048> text{};
    const int length = std::snprintf(text.data(), text.size(), format, arguments...);
    return {text.data(), static_cast<std::size_t>(length)};
}

const std::vector<const char*> kDoubleFormats = {
    "%f", "%.0f", "%.1f", "%.2f", "%.3f", "%5.1f",  "%-8.2f|", "%08.3f", "%+.2f",   "% .1f", "%.0f%%",
    "%e", "%.3e", "%g",   "%.3g", "%10g", "%-10g|", "%+g",     "%.12g",  "%010.2f", "%lf"};

std::vector<double> tellingDoubles() {
    std::vector<double> values = {0.0,
                                  -0.0,
                                  0.5,
                                  1.5,
                                  2.5,
                                  0.05,
                                  0.15,
                                  0.25,
                                  0.35,
                                  0.45,
                                  1.005,
                                  99.95,
                                  999.5,
                                  999.95,
                                  1e3,
                                  1e6,
                                  1e9,
                                  1e15,
                                  1e17,
                                  1e22,
                                  1e100,
                                  1e308,
                                  1e-5,
                                  1e-300,
                                  5e-324,
                                  -1.5,
                                  -2.5,
                                  -999.5,
                                  -1e-9,
                                  123456.789,
                                  1.0 / 3,
                                  2.0 / 3,
                                  9.995,
                                  99950000.0,
                                  999999.0,
                                  4294967296.0,
                                  9007199254740993.0};
    values.push_back(std::numeric_limits<double>::infinity());
    values.push_back(-std::numeric_limits<double>::infinity());
    values.push_back(std::numeric_limits<double>::quiet_NaN());
    return values;
}

TEST(FormatText, DoublesAreWrittenAsTheCLibraryWritesThem) {
    for (const char* format : kDoubleFormats) {
        for (const double value : tellingDoubles()) {
            EXPECT_EQ(formatText(format, {value}), libraryText(format, value)) << format << " of " << value;
        }
    }
}

TEST(FormatText, RandomDoublesAreWrittenAsTheCLibraryWritesThem) {
    std::mt19937_64 random(20240229);
    for (int round = 0; round < 20000; ++round) {
        const auto bits = random();
        double value = 0;
        // Bit patterns reach the ends of the range; ratios are what figures look like.
        if (round % 2 == 0) {
            static_assert(sizeof(bits) == sizeof(value));
            std::memcpy(&value, &bits, sizeof value);
            if (std::isnan(value)) continue;
        } else {
            value = static_cast<double>(bits % 10'000'000'000) / static_cast<double>(1 + bits % 9973);
        }
        const char* format = kDoubleFormats[static_cast<std::size_t>(round) % kDoubleFormats.size()];
        ASSERT_EQ(formatText(format, {value}), libraryText(format, value)) << format << " of " << value;
    }
}

TEST(FormatText, IntegersAreWrittenAsTheCLibraryWritesThem) {
    const std::vector<long long> values = {0,
                                           1,
                                           -1,
                                           9,
                                           10,
                                           -10,
                                           255,
                                           65535,
                                           1'000'000,
                                           std::numeric_limits<long long>::max(),
                                           std::numeric_limits<long long>::min()};
    for (const char* format :
         {"%lld", "%5lld", "%-5lld|", "%05lld", "%+lld", "% lld", "%llx", "%llX", "%016llx"}) {
        for (const long long value : values) {
            EXPECT_EQ(formatText(format, {value}), libraryText(format, value)) << format << " of " << value;
        }
    }
    EXPECT_EQ(formatText("%u", {std::numeric_limits<std::uint64_t>::max()}), "18446744073709551615");
}

TEST(FormatText, TextsAreWrittenAsTheCLibraryWritesThem) {
    for (const char* format : {"%s", "%8s|", "%-8s|", "%.2s", "%8.3s|"}) {
        EXPECT_EQ(formatText(format, {"Velmora"}), libraryText(format, "Velmora")) << format;
    }
}

TEST(FormatText, AtSignTakesAText) {
    EXPECT_EQ(formatText("%@ free of %@", {"12 GB", std::string("512 GB")}), "12 GB free of 512 GB");
}

TEST(FormatText, TwoPercentSignsAreOne) {
    EXPECT_EQ(formatText("%d%%", {42}), "42%");
}

TEST(FormatText, ConversionWithoutAnArgumentShowsItself) {
    EXPECT_EQ(formatText("%d of %d", {1}), "1 of %d");
}

TEST(FormatText, ArgumentOfAnotherKindShowsTheConversion) {
    EXPECT_EQ(formatText("%d", {"text"}), "%d");
    EXPECT_EQ(formatText("%s", {1}), "%s");
    EXPECT_EQ(formatText("%.1f", {1}), "%.1f");
}

TEST(FormatText, FormatThatEndsInAConversionShowsItsEnd) {
    EXPECT_EQ(formatText("100%", {}), "100%");
    EXPECT_EQ(formatText("a %-5.", {1}), "a %-5.");
}

TEST(FormatText, UnknownConversionShowsItself) {
    EXPECT_EQ(formatText("%q then %d", {1, 2}), "%q then 2");
}

TEST(FormatText, AppendingKeepsWhatStoodThere) {
    std::string text = "load ";
    appendFormat(text, "%.2f", {1.25});
    EXPECT_EQ(text, "load 1.25");
}

TEST(FormatText, LocaleWithADecimalCommaChangesNothing) {
    const char* found = nullptr;
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "pl_PL.UTF-8"}) {
        if (found == nullptr) found = std::setlocale(LC_ALL, name);
    }
    ASSERT_NE(found, nullptr) << "this test needs a locale with a decimal comma";
    EXPECT_EQ(libraryText("%.1f", 1.5), "1,5");
    EXPECT_EQ(formatText("%.1f of %g, %d", {1.5, 2.5, 1000000}), "1.5 of 2.5, 1000000");
    std::setlocale(LC_ALL, "C");
}

}  // namespace
}  // namespace velmora
