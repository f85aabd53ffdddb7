// What holds for the texts themselves, whoever translated them.

#include "base/FormatText.h"
#include "l10n/LocalizationTables.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmora {
namespace {

std::string_view textOf(AppLanguage language, std::string_view key) {
    return LocalizationTables::tables().at(language).get().at(key);
}

/// The conversions of a text in their order; a percent sign that begins none of ours is given alone.
std::vector<std::string> placeholdersOf(std::string_view text) {
    std::vector<std::string> placeholders;
    for (auto at = text.find('%'); at != std::string_view::npos; at = text.find('%', at + 1)) {
        const char next = at + 1 < text.size() ? text[at + 1] : '\0';
        placeholders.push_back(next == 'd' || next == '@' ? std::string{'%', next} : "%");
    }
    return placeholders;
}

template <typename Check>
void forEveryText(Check check) {
    for (const AppLanguage language : kAllLanguages) {
        for (const LocalizationEntry& entry : LocalizationTables::entries(language)) check(language, entry);
    }
}

std::string placeOf(AppLanguage language, const LocalizationEntry& entry) {
    return std::string(rawValue(language)) + " " + std::string(entry.key) + ": " + std::string(entry.text);
}

TEST(LocalizationTexts, NoneIsEmpty) {
    forEveryText([](AppLanguage language, const LocalizationEntry& entry) {
        EXPECT_FALSE(entry.text.empty()) << placeOf(language, entry);
    });
}

TEST(LocalizationTexts, NoneBeginsOrEndsWithABlank) {
    const std::vector<std::string_view> blanks = {" ",      "\t",     "\n",     "\r",
                                                  "\u00A0", "\u202F", "\u3000", "\u200B"};
    forEveryText([&](AppLanguage language, const LocalizationEntry& entry) {
        for (const std::string_view blank : blanks) {
            EXPECT_FALSE(entry.text.starts_with(blank)) << placeOf(language, entry);
            EXPECT_FALSE(entry.text.ends_with(blank)) << placeOf(language, entry);
        }
    });
}

TEST(LocalizationTexts, NoneHasTwoBlanksInARow) {
    forEveryText([](AppLanguage language, const LocalizationEntry& entry) {
        for (const char* blanks : {"  ", " \u00A0", "\u00A0 ", "\u00A0\u00A0"}) {
            EXPECT_EQ(entry.text.find(blanks), std::string_view::npos) << placeOf(language, entry);
        }
    });
}

TEST(LocalizationTexts, NoneHasALineBreakOrAnInvisibleCharacter) {
    forEveryText([](AppLanguage language, const LocalizationEntry& entry) {
        for (const char letter : entry.text) {
            EXPECT_GE(static_cast<unsigned char>(letter), static_cast<unsigned char>(' '))
                << placeOf(language, entry);
        }
        for (const char* invisible : {"\u00AD", "\u200B", "\u200E", "\u200F", "\uFEFF", "\uFFFD"}) {
            EXPECT_EQ(entry.text.find(invisible), std::string_view::npos) << placeOf(language, entry);
        }
    });
}

TEST(LocalizationTexts, PlaceholdersAreThoseOfTheEnglishTextInTheSameOrder) {
    forEveryText([](AppLanguage language, const LocalizationEntry& entry) {
        EXPECT_EQ(placeholdersOf(entry.text), placeholdersOf(textOf(AppLanguage::en, entry.key)))
            << placeOf(language, entry);
    });
}

TEST(LocalizationTexts, OnlyTheKnownTextsHavePlaceholders) {
    const std::map<std::string_view, std::vector<std::string>> expected = {
        {"cpu.coresCount", {"%d"}}, {"disk.freeOf", {"%@", "%@"}}, {"graph.ago", {"%d"}},
        {"sen.fan", {"%d"}},        {"sen.fanCount", {"%d"}},      {"about.version", {"%@"}},
        {"cpu.perCoreNote", {"%"}},
    };
    for (const LocalizationEntry& entry : LocalizationTables::entries(AppLanguage::en)) {
        const auto row = expected.find(entry.key);
        EXPECT_EQ(placeholdersOf(entry.text),
                  row != expected.end() ? row->second : std::vector<std::string>())
            << entry.key;
    }
}

TEST(LocalizationTexts, NoPlaceholderIsPositional) {
    forEveryText([](AppLanguage language, const LocalizationEntry& entry) {
        EXPECT_EQ(entry.text.find('$'), std::string_view::npos) << placeOf(language, entry);
    });
}

TEST(LocalizationTexts, EllipsisIsOneCharacter) {
    forEveryText([](AppLanguage language, const LocalizationEntry& entry) {
        EXPECT_EQ(entry.text.find(".."), std::string_view::npos) << placeOf(language, entry);
    });
}

TEST(LocalizationTexts, EllipsisEndsTheTextsThatOpenSomethingFurtherAndStandsNowhereElse) {
    forEveryText([](AppLanguage language, const LocalizationEntry& entry) {
        const bool opensFurther = textOf(AppLanguage::en, entry.key).ends_with("…");
        EXPECT_EQ(entry.text.ends_with("…"), opensFurther) << placeOf(language, entry);
        const auto first = entry.text.find("…");
        EXPECT_TRUE(first == std::string_view::npos ||
                    first + std::string_view("…").size() == entry.text.size())
            << placeOf(language, entry);
    });
}

TEST(LocalizationTexts, HyphenStandsInForNoDash) {
    forEveryText([](AppLanguage language, const LocalizationEntry& entry) {
        for (const char* hyphen : {" - ", "\u00A0- ", " -\u00A0", "--", "\u2010", "\u2011", "\u2212"}) {
            EXPECT_EQ(entry.text.find(hyphen), std::string_view::npos) << placeOf(language, entry);
        }
    });
}

/// English, Portuguese and Russian part their sentences with the long dash, German, Dutch and Polish with the
/// short one. The others do it by a comma, a colon or a full stop.
TEST(LocalizationTexts, EachLanguageHasItsOwnDash) {
    using enum AppLanguage;
    const std::map<AppLanguage, std::string_view> dashes = {{en, "—"}, {ptBR, "—"}, {ru, "—"},
                                                            {de, "–"}, {nl, "–"},   {pl, "–"}};
    forEveryText([&](AppLanguage language, const LocalizationEntry& entry) {
        const auto own = dashes.find(language);
        for (const std::string_view dash : {"—", "–"}) {
            if (own != dashes.end() && own->second == dash) continue;
            EXPECT_EQ(entry.text.find(dash), std::string_view::npos) << placeOf(language, entry);
        }
    });
}

TEST(LocalizationTexts, DashHasABlankOnBothSides) {
    forEveryText([](AppLanguage language, const LocalizationEntry& entry) {
        for (const std::string_view dash : {"—", "–"}) {
            for (auto at = entry.text.find(dash); at != std::string_view::npos;
                 at = entry.text.find(dash, at + 1)) {
                const std::string_view before = entry.text.substr(0, at);
                EXPECT_TRUE(before.ends_with(" ") || before.ends_with("\u00A0")) << placeOf(language, entry);
                EXPECT_TRUE(entry.text.substr(at + dash.size()).starts_with(" ")) << placeOf(language, entry);
            }
        }
    });
}

TEST(LocalizationTexts, ProductKeySymbolsAndArrowsAreKept) {
    forEveryText([](AppLanguage language, const LocalizationEntry& entry) {
        for (const std::string_view kept : {"Velmora", "⌘", "›"}) {
            const bool inEnglish = textOf(AppLanguage::en, entry.key).find(kept) != std::string_view::npos;
            const bool inText = entry.text.find(kept) != std::string_view::npos;
            EXPECT_EQ(inEnglish, inText) << kept << " in " << placeOf(language, entry);
        }
    });
}

TEST(LocalizationTexts, EnglishUsesFewCharactersBeyondASCII) {
    for (const LocalizationEntry& entry : LocalizationTables::entries(AppLanguage::en)) {
        std::string rest(entry.text);
        if (entry.key == "about.copyright") continue;
        for (const std::string_view allowed : {"⌘", "›", "…", "—"}) {
            for (auto at = rest.find(allowed); at != std::string::npos; at = rest.find(allowed)) {
                rest.erase(at, allowed.size());
            }
        }
        for (const char letter : rest) EXPECT_TRUE(letter >= ' ' && letter <= '~') << entry.key;
    }
}

TEST(LocalizationTexts, SomeKeysHaveOneTextEverywhere) {
    for (const char* key :
         {"mod.cpu", "about.copyright", "temp.cpu", "temp.gpu", "temp.soc", "temp.ssd", "metric.gpu"}) {
        for (const AppLanguage language : kAllLanguages) {
            EXPECT_EQ(textOf(language, key), textOf(AppLanguage::en, key))
                << rawValue(language) << " " << key;
        }
    }
}

/// Where a number or a name goes differs from language to language.
struct TellingRow {
    AppLanguage language;
    const char* system;
    const char* freeOf;
    const char* ago;
    const char* coresCount;
    const char* fanCount;
    const char* fan;
    const char* version;
};

TEST(LocalizationTexts, TellingRowsAreExact) {
    using enum AppLanguage;
    const std::vector<TellingRow> rows = {
        {en, "System", "%@ free of %@", "%ds ago", "%d cores", "%d fans", "Fan %d", "Version %@"},
        {ja, "システム", "%@ 空き / %@", "%d 秒前", "%d コア", "%d 基", "ファン %d", "バージョン %@"},
        {ko, "시스템", "%@ 사용 가능 / 전체 %@", "%d초 전", "코어 %d개", "팬 %d개", "팬 %d", "버전 %@"},
        {zhHans, "系统", "%@ 可用,共 %@", "%d 秒前", "%d 核", "%d 个风扇", "风扇 %d", "版本 %@"},
        {zhHant, "系統", "%@ 可用,共 %@", "%d 秒前", "%d 核", "%d 個風扇", "風扇 %d", "版本 %@"},
        {de, "System", "%@ frei von %@", "vor %d s", "%d Kerne", "%d Lüfter", "Lüfter %d", "Version %@"},
        {fr, "Système", "%@ libres sur %@", "il y a %d s", "%d cœurs", "%d ventilateurs", "Ventilateur %d",
         "Version %@"},
        {es, "Sistema", "%@ libres de %@", "hace %d s", "%d núcleos", "%d ventiladores", "Ventilador %d",
         "Versión %@"},
        {ptBR, "Sistema", "%@ livres de %@", "há %d s", "%d núcleos", "%d ventiladores", "Ventoinha %d",
         "Versão %@"},
        {ru, "Системный", "Свободно %@ из %@", "%d с назад", "%d ядер", "%d вент.", "Вентилятор %d",
         "Версия %@"},
        {it, "Sistema", "%@ liberi su %@", "%d s fa", "%d core", "%d ventole", "Ventola %d", "Versione %@"},
        {nl, "Systeem", "%@ vrij van %@", "%d s geleden", "%d kernen", "%d ventilators", "Ventilator %d",
         "Versie %@"},
        {pl, "Systemowy", "%@ wolne z %@", "%d s temu", "%d rdzeni", "%d wentylatorów", "Wentylator %d",
         "Wersja %@"},
        {tr, "Sistem", "%@ boş / %@", "%d sn önce", "%d çekirdek", "%d fan", "Fan %d", "Sürüm %@"},
    };
    ASSERT_EQ(rows.size(), kLanguageCount);
    for (const TellingRow& row : rows) {
        SCOPED_TRACE(rawValue(row.language));
        EXPECT_EQ(textOf(row.language, "common.systemDefault"), row.system);
        EXPECT_EQ(textOf(row.language, "disk.freeOf"), row.freeOf);
        EXPECT_EQ(textOf(row.language, "graph.ago"), row.ago);
        EXPECT_EQ(textOf(row.language, "cpu.coresCount"), row.coresCount);
        EXPECT_EQ(textOf(row.language, "sen.fanCount"), row.fanCount);
        EXPECT_EQ(textOf(row.language, "sen.fan"), row.fan);
        EXPECT_EQ(textOf(row.language, "about.version"), row.version);
    }
}

TEST(LocalizationTexts, FreeAmountStaysFirstInKoreanAndRussian) {
    EXPECT_EQ(formatText(textOf(AppLanguage::ko, "disk.freeOf"), {"12 GB", "512 GB"}),
              "12 GB 사용 가능 / 전체 512 GB");
    EXPECT_EQ(formatText(textOf(AppLanguage::ru, "disk.freeOf"), {"12 GB", "512 GB"}),
              "Свободно 12 GB из 512 GB");
}

TEST(LocalizationTexts, PercentSignStandsBeforeTheNumberInTurkish) {
    EXPECT_EQ(textOf(AppLanguage::tr, "cpu.perCoreNote"), "1 çekirdek = %100");
}

TEST(LocalizationTexts, EveryPlaceholderTakesItsArgument) {
    for (const AppLanguage language : kAllLanguages) {
        SCOPED_TRACE(rawValue(language));
        for (const char* key : {"cpu.coresCount", "graph.ago", "sen.fan", "sen.fanCount"}) {
            const std::string text = formatText(textOf(language, key), {37});
            EXPECT_NE(text.find("37"), std::string::npos) << text;
            EXPECT_EQ(text.find('%'), std::string::npos) << text;
        }
        const std::string version = formatText(textOf(language, "about.version"), {"1.2.3"});
        EXPECT_NE(version.find("1.2.3"), std::string::npos) << version;
    }
}

/// Texts that rightly read the same as in English, each with the reason. Every other equal text is a
/// forgotten translation, and a row that no longer holds must go.
struct SameAsEnglish {
    const char* key;
    std::set<AppLanguage> languages;
    const char* reason;
};

std::vector<SameAsEnglish> sameAsEnglish() {
    using enum AppLanguage;
    return {
        {"common.systemDefault", {de}, "the German word is the same"},
        {"common.ok", {de, fr, it, ja, nl, pl, ptBR}, "buttons of dialogs say OK in these languages"},
        {"cpu.system", {de, pl}, "the German and the Polish word are the same"},
        {"net.down", {de, it, nl, ptBR}, "the English noun is the everyday word"},
        {"net.up", {de, it, nl, ptBR}, "the English noun is the everyday word"},
        {"about.version", {de, fr}, "the German and the French word are the same"},
        {"metric.threads", {de, fr, nl, ptBR}, "task managers use the English term"},
        {"tab.modules", {fr, nl}, "the plural of module is spelt the same"},
        {"tab.account", {it, nl}, "the English word is what systems call it"},
        {"common.later", {nl}, "the Dutch word is the same"},
        {"metric.volumes", {fr, nl, ptBR}, "the plural of volume is spelt the same"},
        {"tab.general", {es}, "the Spanish word is spelt the same"},
        {"mod.color", {es}, "the Spanish word is spelt the same"},
        {"mem.wired", {it}, "system monitors use the English term"},
        {"mem.swap", {it, ptBR}, "system monitors use the English term"},
        {"metric.swap", {it, ptBR}, "system monitors use the English term"},
        {"mod.style", {fr}, "the French word is the same"},
        {"mod.disk", {tr}, "the Turkish word is the same"},
        {"sen.fan", {tr}, "the Turkish word is the same"},
        {"cpu.perCoreNote", {it}, "the Italian term is core, as in the number of cores"},
    };
}

TEST(LocalizationTexts, OnlyListedTextsEqualTheEnglish) {
    const std::set<std::string_view> everywhere = {"mod.cpu",  "about.copyright", "temp.cpu",  "temp.gpu",
                                                   "temp.soc", "temp.ssd",        "metric.gpu"};
    std::map<std::string_view, std::set<AppLanguage>> listed;
    for (const SameAsEnglish& row : sameAsEnglish()) listed.emplace(row.key, row.languages);
    forEveryText([&](AppLanguage language, const LocalizationEntry& entry) {
        if (language == AppLanguage::en || everywhere.contains(entry.key)) return;
        const auto row = listed.find(entry.key);
        const bool mayBeEqual = row != listed.end() && row->second.contains(language);
        EXPECT_EQ(entry.text == textOf(AppLanguage::en, entry.key), mayBeEqual) << placeOf(language, entry);
    });
}

}  // namespace
}  // namespace velmora
