#include "l10n/LocalizationTables.h"

#include <array>
#include <cstdio>
#include <cstdlib>

namespace velmora::LocalizationTables {
namespace {

[[noreturn]] void stopForDuplicate(std::string_view what) {
    std::fputs("Velmora: duplicate entry in the string tables: ", stderr);
    std::fwrite(what.data(), 1, what.size(), stderr);
    std::fputc('\n', stderr);
    std::abort();
}

/// The text under a key in one language; nothing if its table lacks the key.
std::optional<std::string_view> textIn(const Tables& tables, AppLanguage language, std::string_view key) {
    const auto table = tables.find(language);
    if (table == tables.end()) return std::nullopt;
    const auto row = table->second.get().find(key);
    if (row == table->second.get().end()) return std::nullopt;
    return row->second;
}

}  // namespace

Table makeTable(std::span<const LocalizationEntry> entries) {
    Table table;
    table.reserve(entries.size());
    for (const LocalizationEntry& entry : entries) {
        if (!table.emplace(entry.key, entry.text).second) stopForDuplicate(entry.key);
    }
    return table;
}

Tables makeTables(std::span<const LanguageTable> languages) {
    Tables tables;
    tables.reserve(languages.size());
    for (const auto& [language, table] : languages) {
        if (!tables.emplace(language, table).second) stopForDuplicate(rawValue(language));
    }
    return tables;
}

std::span<const LocalizationEntry> entries(AppLanguage language) {
    switch (language) {
        case AppLanguage::en:
            return kEnglishEntries;
        case AppLanguage::ja:
            return kJapaneseEntries;
        case AppLanguage::ko:
            return kKoreanEntries;
        case AppLanguage::zhHans:
            return kSimplifiedChineseEntries;
        case AppLanguage::zhHant:
            return kTraditionalChineseEntries;
        case AppLanguage::de:
            return kGermanEntries;
        case AppLanguage::fr:
            return kFrenchEntries;
        case AppLanguage::es:
            return kSpanishEntries;
        case AppLanguage::ptBR:
            return kBrazilianPortugueseEntries;
        case AppLanguage::ru:
            return kRussianEntries;
        case AppLanguage::it:
            return kItalianEntries;
        case AppLanguage::nl:
            return kDutchEntries;
        case AppLanguage::pl:
            return kPolishEntries;
        case AppLanguage::tr:
            return kTurkishEntries;
    }
    return {};
}

// The language initialises a function's static variable once, whichever thread comes first.

const Table& en() {
    static const Table table = makeTable(entries(AppLanguage::en));
    return table;
}

const Table& ja() {
    static const Table table = makeTable(entries(AppLanguage::ja));
    return table;
}

const Table& ko() {
    static const Table table = makeTable(entries(AppLanguage::ko));
    return table;
}

const Table& zhHans() {
    static const Table table = makeTable(entries(AppLanguage::zhHans));
    return table;
}

const Table& zhHant() {
    static const Table table = makeTable(entries(AppLanguage::zhHant));
    return table;
}

const Table& de() {
    static const Table table = makeTable(entries(AppLanguage::de));
    return table;
}

const Table& fr() {
    static const Table table = makeTable(entries(AppLanguage::fr));
    return table;
}

const Table& es() {
    static const Table table = makeTable(entries(AppLanguage::es));
    return table;
}

const Table& ptBR() {
    static const Table table = makeTable(entries(AppLanguage::ptBR));
    return table;
}

const Table& ru() {
    static const Table table = makeTable(entries(AppLanguage::ru));
    return table;
}

const Table& it() {
    static const Table table = makeTable(entries(AppLanguage::it));
    return table;
}

const Table& nl() {
    static const Table table = makeTable(entries(AppLanguage::nl));
    return table;
}

const Table& pl() {
    static const Table table = makeTable(entries(AppLanguage::pl));
    return table;
}

const Table& tr() {
    static const Table table = makeTable(entries(AppLanguage::tr));
    return table;
}

const Tables& tables() {
    static const Tables all = makeTables(std::array{
        LanguageTable{AppLanguage::en, en()},
        LanguageTable{AppLanguage::ja, ja()},
        LanguageTable{AppLanguage::ko, ko()},
        LanguageTable{AppLanguage::zhHans, zhHans()},
        LanguageTable{AppLanguage::zhHant, zhHant()},
        LanguageTable{AppLanguage::de, de()},
        LanguageTable{AppLanguage::fr, fr()},
        LanguageTable{AppLanguage::es, es()},
        LanguageTable{AppLanguage::ptBR, ptBR()},
        LanguageTable{AppLanguage::ru, ru()},
        LanguageTable{AppLanguage::it, it()},
        LanguageTable{AppLanguage::nl, nl()},
        LanguageTable{AppLanguage::pl, pl()},
        LanguageTable{AppLanguage::tr, tr()},
    });
    return all;
}

std::optional<std::string_view> text(const Tables& tables, AppLanguage language, std::string_view key) {
    if (const auto own = textIn(tables, language, key)) return own;
    return textIn(tables, AppLanguage::en, key);
}

}  // namespace velmora::LocalizationTables
