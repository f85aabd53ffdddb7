#include "l10n/LocalizationTables.h"

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

Tables makeTables() {
    Tables tables;
    tables.reserve(kLanguageCount);
    const auto add = [&tables](AppLanguage language, const Table& table) {
        if (!tables.emplace(language, table).second) stopForDuplicate(rawValue(language));
    };
    add(AppLanguage::en, en());
    add(AppLanguage::ja, ja());
    add(AppLanguage::ko, ko());
    add(AppLanguage::zhHans, zhHans());
    add(AppLanguage::zhHant, zhHant());
    add(AppLanguage::de, de());
    add(AppLanguage::fr, fr());
    add(AppLanguage::es, es());
    add(AppLanguage::ptBR, ptBR());
    add(AppLanguage::ru, ru());
    add(AppLanguage::it, it());
    add(AppLanguage::nl, nl());
    add(AppLanguage::pl, pl());
    add(AppLanguage::tr, tr());
    return tables;
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
    static const Tables all = makeTables();
    return all;
}

}  // namespace velmora::LocalizationTables
