#include "l10n/AppLanguage.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmora {
namespace {

using Tags = std::vector<std::string>;

TEST(AppLanguage, OrderTagsAndNamesAreThoseOfThePicker) {
    Tags tags;
    Tags names;
    for (const AppLanguage language : kAllLanguages) {
        tags.emplace_back(rawValue(language));
        names.emplace_back(displayName(language));
    }
    EXPECT_EQ(tags, (Tags{"en", "ja", "ko", "zh-Hans", "zh-Hant", "de", "fr", "es", "pt-BR", "ru", "it", "nl",
                          "pl", "tr"}));
    EXPECT_EQ(names,
              (Tags{"English", "日本語", "한국어", "简体中文", "繁體中文", "Deutsch", "Français", "Español",
                    "Português (Brasil)", "Русский", "Italiano", "Nederlands", "Polski", "Türkçe"}));
}

TEST(AppLanguage, TagLeadsBackToItsLanguage) {
    for (const AppLanguage language : kAllLanguages)
        EXPECT_EQ(languageFromRawValue(rawValue(language)), language);
}

TEST(AppLanguage, TagIsComparedWholeAndCaseSensitively) {
    for (const char* tag : {"", "EN", "En", "zh", "zh-hans", "pt", "pt_BR", "de-DE", "en ", "xx"}) {
        EXPECT_EQ(languageFromRawValue(tag), std::nullopt) << tag;
    }
}

TEST(SystemDefaultLanguage, UnknownFirstTagIsSkipped) {
    EXPECT_EQ(systemDefaultLanguage({"sv-SE", "de-DE"}), AppLanguage::de);
}

TEST(SystemDefaultLanguage, OnlyUnknownTagsGiveEnglish) {
    EXPECT_EQ(systemDefaultLanguage({"sv-SE"}), AppLanguage::en);
    EXPECT_EQ(systemDefaultLanguage({"C"}), AppLanguage::en);
}

TEST(SystemDefaultLanguage, EmptyListGivesEnglish) {
    EXPECT_EQ(systemDefaultLanguage({}), AppLanguage::en);
}

TEST(SystemDefaultLanguage, ChineseOfTaiwanAndHongKongIsTraditional) {
    EXPECT_EQ(systemDefaultLanguage({"zh-TW"}), AppLanguage::zhHant);
    EXPECT_EQ(systemDefaultLanguage({"zh-Hant-HK"}), AppLanguage::zhHant);
    EXPECT_EQ(systemDefaultLanguage({"zh-Hant"}), AppLanguage::zhHant);
    EXPECT_EQ(systemDefaultLanguage({"zh-MO"}), AppLanguage::zhHant);
}

TEST(SystemDefaultLanguage, OtherChineseIsSimplified) {
    EXPECT_EQ(systemDefaultLanguage({"zh-CN"}), AppLanguage::zhHans);
    EXPECT_EQ(systemDefaultLanguage({"zh-Hans-SG"}), AppLanguage::zhHans);
    EXPECT_EQ(systemDefaultLanguage({"zh"}), AppLanguage::zhHans);
}

TEST(SystemDefaultLanguage, TraditionalMarkAnywhereInAChineseTagOutweighsTheScript) {
    EXPECT_EQ(systemDefaultLanguage({"zh-Hans-HK"}), AppLanguage::zhHant);
    EXPECT_EQ(systemDefaultLanguage({"zh-Hans-MO"}), AppLanguage::zhHant);
}

TEST(SystemDefaultLanguage, UpperCaseTagIsReadAsLowerCase) {
    EXPECT_EQ(systemDefaultLanguage({"ZH-HK"}), AppLanguage::zhHant);
    EXPECT_EQ(systemDefaultLanguage({"DE"}), AppLanguage::de);
}

TEST(SystemDefaultLanguage, EveryPortugueseIsBrazilian) {
    EXPECT_EQ(systemDefaultLanguage({"pt-PT"}), AppLanguage::ptBR);
    EXPECT_EQ(systemDefaultLanguage({"pt"}), AppLanguage::ptBR);
}

TEST(SystemDefaultLanguage, LatinAmericanSpanishIsSpanish) {
    EXPECT_EQ(systemDefaultLanguage({"es-419"}), AppLanguage::es);
}

TEST(SystemDefaultLanguage, BritishEnglishIsEnglishAndEndsTheWalk) {
    EXPECT_EQ(systemDefaultLanguage({"en-GB"}), AppLanguage::en);
    EXPECT_EQ(systemDefaultLanguage({"en-GB", "de-DE"}), AppLanguage::en);
}

TEST(SystemDefaultLanguage, EveryLanguageIsFoundByItsOwnTag) {
    for (const AppLanguage language : kAllLanguages) {
        EXPECT_EQ(systemDefaultLanguage({std::string(rawValue(language))}), language);
    }
}

TEST(SystemDefaultLanguage, ThreeLetterTagIsTakenForTheLanguageItBeginsLike) {
    EXPECT_EQ(systemDefaultLanguage({"kok-IN"}), AppLanguage::ko);
    EXPECT_EQ(systemDefaultLanguage({"fry"}), AppLanguage::fr);
}

}  // namespace
}  // namespace velmora
