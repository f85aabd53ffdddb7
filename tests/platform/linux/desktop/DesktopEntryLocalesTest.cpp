#include "platform/linux/desktop/DesktopEntryLocales.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmora {
namespace {

/// Which of the offered locales a user with these tags reads; "" for what is meant for everybody.
std::string chosen(const std::vector<std::string>& tags, const std::vector<std::string>& offered) {
    const DesktopEntryLocales locales(tags);
    std::string best;
    std::size_t bestRank = locales.rank("");
    for (const std::string& locale : offered) {
        if (locales.rank(locale) >= bestRank) continue;
        best = locale;
        bestRank = locales.rank(locale);
    }
    return best;
}

TEST(DesktopEntryLocales, CountryIsCloserThanTheLanguageAlone) {
    EXPECT_EQ(chosen({"pt-BR"}, {"pt", "pt_BR"}), "pt_BR");
    EXPECT_EQ(chosen({"pt-PT"}, {"pt", "pt_BR"}), "pt");
    EXPECT_EQ(chosen({"pt"}, {"pt_BR", "pt"}), "pt");
}

TEST(DesktopEntryLocales, EarlierLanguageWins) {
    EXPECT_EQ(chosen({"sv-SE", "de-DE"}, {"de_DE", "sv"}), "sv");
    EXPECT_EQ(chosen({"sv-SE", "de-DE"}, {"de", "fr"}), "de");
}

TEST(DesktopEntryLocales, LanguageThatTheUserDoesNotReadNeverCounts) {
    const DesktopEntryLocales locales({"de-DE"});
    EXPECT_GT(locales.rank("fr"), locales.worst());
    EXPECT_EQ(locales.rank(""), locales.worst());
}

TEST(DesktopEntryLocales, WhatIsMeantForEverybodyIsEnglish) {
    EXPECT_EQ(chosen({"en-US", "de-DE"}, {"de", "fr"}), "");
    EXPECT_EQ(chosen({"en-GB", "de-DE"}, {"de", "en_GB"}), "en_GB");
}

TEST(DesktopEntryLocales, ScriptIsAModifier) {
    EXPECT_EQ(chosen({"sr-Latn-RS"}, {"sr", "sr@latin"}), "sr@latin");
    EXPECT_EQ(chosen({"sr-Latn-RS"}, {"sr@latin", "sr_RS@latin"}), "sr_RS@latin");
    EXPECT_EQ(chosen({"sr-Latn-RS"}, {"sr@latin", "sr_RS"}), "sr_RS");
}

TEST(DesktopEntryLocales, ScriptOfChineseIsToldByCountry) {
    EXPECT_EQ(chosen({"zh-Hant"}, {"zh_CN", "zh_TW"}), "zh_TW");
    EXPECT_EQ(chosen({"zh-Hans"}, {"zh_CN", "zh_TW"}), "zh_CN");
    EXPECT_EQ(chosen({"zh-Hant-HK"}, {"zh_CN", "zh_HK"}), "zh_HK");
}

TEST(DesktopEntryLocales, CharacterSetDoesNotCount) {
    EXPECT_EQ(chosen({"de-DE"}, {"de_DE.UTF-8"}), "de_DE.UTF-8");
    EXPECT_EQ(chosen({"sr-Latn-RS"}, {"sr_RS.UTF-8@latin"}), "sr_RS.UTF-8@latin");
}

TEST(DesktopEntryLocales, LocaleOfProgrammersIsNoLanguage) {
    EXPECT_EQ(chosen({"C", "de"}, {"de", "C"}), "");
    EXPECT_EQ(chosen({}, {"de"}), "");
}

TEST(DesktopEntryLocales, OddTagsAreHarmless) {
    for (const char* tag : {"", "-", "de-", "-DE", "de--DE", "d\xC3\xA9"})
        EXPECT_EQ(chosen({tag}, {"fr"}), "") << tag;
    EXPECT_EQ(chosen({"de-"}, {"de"}), "de");
}

}  // namespace
}  // namespace velmora
