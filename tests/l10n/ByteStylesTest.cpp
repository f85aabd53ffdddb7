#include "l10n/ByteStyles.h"

#include "fakes/FakeDefaults.h"
#include "fakes/FakeFrameworkLanguage.h"
#include "fakes/FakePreferredLanguages.h"
#include "l10n/L10n.h"
#include "model/StatsFormat.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <vector>

namespace velmora {
namespace {

using enum AppLanguage;
using Texts = std::vector<std::string>;

/// In expectations a tilde stands for the no-break space, which the eye cannot tell from the other.
std::string written(double byteCount, AppLanguage language) {
    std::string text = StatsFormat::bytes(byteCount, byteStyle(language));
    constexpr std::string_view kNoBreakSpace = "\u00A0";
    for (auto at = text.find(kNoBreakSpace); at != std::string::npos; at = text.find(kNoBreakSpace)) {
        text.replace(at, kNoBreakSpace.size(), "~");
    }
    return text;
}

/// Nothing; 1, 2, 5 and 512 bytes; a kilobyte, one and a half megabytes, two and a quarter gigabytes.
Texts ladder(AppLanguage language) {
    Texts texts;
    for (const double count : {0.0, 1.0, 2.0, 5.0, 512.0, 1e3, 1.5e6, 2.25e9}) {
        texts.push_back(written(count, language));
    }
    return texts;
}

TEST(ByteStyles, EnglishLadder) {
    EXPECT_EQ(ladder(en),
              (Texts{"Zero KB", "1 byte", "2 bytes", "5 bytes", "512 bytes", "1 KB", "1.5 MB", "2.25 GB"}));
}
TEST(ByteStyles, JapaneseLadder) {
    EXPECT_EQ(ladder(ja), (Texts{"ゼロ KB", "1 バイト", "2 バイト", "5 バイト", "512 バイト", "1 KB",
                                 "1.5 MB", "2.25 GB"}));
}
TEST(ByteStyles, KoreanLadder) {
    EXPECT_EQ(ladder(ko),
              (Texts{"0KB", "1바이트", "2바이트", "5바이트", "512바이트", "1KB", "1.5MB", "2.25GB"}));
}
TEST(ByteStyles, SimplifiedChineseLadder) {
    EXPECT_EQ(ladder(zhHans),
              (Texts{"零 KB", "1 字节", "2 字节", "5 字节", "512 字节", "1 KB", "1.5 MB", "2.25 GB"}));
}
TEST(ByteStyles, TraditionalChineseLadder) {
    EXPECT_EQ(ladder(zhHant), (Texts{"零 KB", "1 位元組", "2 位元組", "5 位元組", "512 位元組", "1 KB",
                                     "1.5 MB", "2.25 GB"}));
}
TEST(ByteStyles, GermanLadder) {
    EXPECT_EQ(ladder(de),
              (Texts{"Null~KB", "1~Byte", "2~Byte", "5~Byte", "512~Byte", "1~KB", "1,5~MB", "2,25~GB"}));
}
TEST(ByteStyles, FrenchLadder) {
    EXPECT_EQ(ladder(fr), (Texts{"Zéro~Ko", "1~octet", "2~octets", "5~octets", "512~octets", "1~Ko", "1,5~Mo",
                                 "2,25~Go"}));
}
TEST(ByteStyles, SpanishLadder) {
    EXPECT_EQ(ladder(es),
              (Texts{"Cero KB", "1 byte", "2 bytes", "5 bytes", "512 bytes", "1 KB", "1,5 MB", "2,25 GB"}));
}
TEST(ByteStyles, BrazilianPortugueseLadder) {
    EXPECT_EQ(ladder(ptBR),
              (Texts{"Zero KB", "1 byte", "2 bytes", "5 bytes", "512 bytes", "1 KB", "1,5 MB", "2,25 GB"}));
}
TEST(ByteStyles, RussianLadder) {
    EXPECT_EQ(ladder(ru),
              (Texts{"Ноль КБ", "1 байт", "2 байта", "5 байт", "512 байт", "1 КБ", "1,5 МБ", "2,25 ГБ"}));
}
TEST(ByteStyles, ItalianLadder) {
    EXPECT_EQ(ladder(it),
              (Texts{"Zero KB", "1 byte", "2 byte", "5 byte", "512 byte", "1 KB", "1,5 MB", "2,25 GB"}));
}
TEST(ByteStyles, DutchLadder) {
    EXPECT_EQ(ladder(nl),
              (Texts{"Nul KB", "1 byte", "2 byte", "5 byte", "512 byte", "1 KB", "1,5 MB", "2,25 GB"}));
}
TEST(ByteStyles, PolishLadder) {
    EXPECT_EQ(ladder(pl),
              (Texts{"Zero KB", "1 bajt", "2 bajty", "5 bajtów", "512 bajtów", "1 KB", "1,5 MB", "2,25 GB"}));
}
TEST(ByteStyles, TurkishLadder) {
    EXPECT_EQ(ladder(tr),
              (Texts{"Sıfır KB", "1 bayt", "2 bayt", "5 bayt", "512 bayt", "1 KB", "1,5 MB", "2,25 GB"}));
}

TEST(ByteStyles, LargestUnitsFollowTheLettersOfTheLanguage) {
    const auto largest = [](AppLanguage language) {
        return Texts{written(1e12, language), written(1e15, language), written(1e18, language)};
    };
    EXPECT_EQ(largest(en), (Texts{"1 TB", "1 PB", "1 EB"}));
    EXPECT_EQ(largest(ko), (Texts{"1TB", "1PB", "1EB"}));
    EXPECT_EQ(largest(fr), (Texts{"1~To", "1~Po", "1~Eo"}));
    EXPECT_EQ(largest(ru), (Texts{"1 ТБ", "1 ПБ", "1 ЭБ"}));
}

TEST(ByteStyles, RussianNounFollowsTheEndOfTheNumber) {
    for (const int count : {1, 21, 31, 101, 121, 991}) {
        EXPECT_EQ(byteStyle(ru).byteForm(count), ByteForm::one) << count;
    }
    EXPECT_EQ(written(21, ru), "21 байт");
    for (const int count : {2, 3, 4, 22, 24, 102, 122, 994}) {
        EXPECT_EQ(written(count, ru), std::to_string(count) + " байта");
    }
    for (const int count : {5, 10, 11, 12, 14, 20, 25, 100, 111, 112, 114, 512, 999}) {
        EXPECT_EQ(byteStyle(ru).byteForm(count), ByteForm::many) << count;
        EXPECT_EQ(written(count, ru), std::to_string(count) + " байт");
    }
}

TEST(ByteStyles, PolishNounIsSingularForOneAlone) {
    EXPECT_EQ(written(1, pl), "1 bajt");
    for (const int count : {2, 3, 4, 22, 24, 102, 122, 994}) {
        EXPECT_EQ(written(count, pl), std::to_string(count) + " bajty");
    }
    for (const int count : {5, 10, 11, 12, 14, 20, 21, 25, 31, 100, 101, 111, 112, 114, 512, 999}) {
        EXPECT_EQ(written(count, pl), std::to_string(count) + " bajtów");
    }
}

TEST(ByteStyles, DecimalPointIsEnglishAndEastAsianAndTheOthersHaveAComma) {
    const std::set<AppLanguage> withPoint = {en, ja, ko, zhHans, zhHant};
    for (const AppLanguage language : kAllLanguages) {
        EXPECT_EQ(byteStyle(language).decimalSeparator, withPoint.contains(language) ? "." : ",")
            << rawValue(language);
    }
}

TEST(ByteStyles, EnglishIsTheStyleOfTheFormWithoutOne) {
    EXPECT_EQ(byteStyle(en), kEnglishByteStyle);
}

TEST(ByteStyles, EveryLanguageHasEveryWord) {
    for (const AppLanguage language : kAllLanguages) {
        SCOPED_TRACE(rawValue(language));
        const ByteStyle& style = byteStyle(language);
        const auto isEmpty = [](std::string_view text) { return text.empty(); };
        EXPECT_FALSE(style.zero.empty());
        EXPECT_TRUE(std::ranges::none_of(style.byteNames, isEmpty));
        EXPECT_TRUE(std::ranges::none_of(style.unitNames, isEmpty));
        EXPECT_NE(style.byteForm, nullptr);
        const std::set<std::string_view> units(style.unitNames.begin(), style.unitNames.end());
        EXPECT_EQ(units.size(), style.unitNames.size());
    }
}

TEST(ByteStyles, ZeroIsWrittenInTheSmallestLargerUnitWithItsGap) {
    for (const AppLanguage language : kAllLanguages) {
        const ByteStyle& style = byteStyle(language);
        const std::string ending = std::string(style.unitGap) + std::string(style.unitNames.front());
        EXPECT_TRUE(style.zero.ends_with(ending)) << rawValue(language);
    }
}

TEST(ByteStyles, NoTwoLanguagesShareAStyle) {
    for (const AppLanguage language : kAllLanguages) {
        for (const AppLanguage other : kAllLanguages) {
            if (language == other) continue;
            EXPECT_NE(ladder(language), ladder(other)) << rawValue(language) << " " << rawValue(other);
        }
    }
}

TEST(ByteStyles, InterfaceHasTheStyleOfItsPresentLanguage) {
    FakeDefaults defaults;
    FakePreferredLanguages preferred{{"fr-FR"}};
    FakeFrameworkLanguage framework;
    L10n l10n{defaults, preferred, framework};
    EXPECT_EQ(&l10n.byteStyle(), &byteStyle(en));
    l10n.bootstrap();
    EXPECT_EQ(&l10n.byteStyle(), &byteStyle(fr));
    l10n.apply("pl");
    EXPECT_EQ(&l10n.byteStyle(), &byteStyle(pl));
}

}  // namespace
}  // namespace velmora
