#pragma once

#include <cstddef>
#include <string_view>

namespace velmora {

/// One row of a language's source list: the dotted key and its text in that language.
struct LocalizationEntry {
    std::string_view key;
    std::string_view text;
};

/// All fourteen lists hold the same keys in the same order, so they have one length.
inline constexpr std::size_t kLocalizationEntryCount = 190;
using LocalizationEntries = LocalizationEntry[kLocalizationEntryCount];

extern const LocalizationEntries kEnglishEntries;
extern const LocalizationEntries kJapaneseEntries;
extern const LocalizationEntries kKoreanEntries;
extern const LocalizationEntries kSimplifiedChineseEntries;
extern const LocalizationEntries kTraditionalChineseEntries;
extern const LocalizationEntries kGermanEntries;
extern const LocalizationEntries kFrenchEntries;
extern const LocalizationEntries kSpanishEntries;
extern const LocalizationEntries kBrazilianPortugueseEntries;
extern const LocalizationEntries kRussianEntries;
extern const LocalizationEntries kItalianEntries;
extern const LocalizationEntries kDutchEntries;
extern const LocalizationEntries kPolishEntries;
extern const LocalizationEntries kTurkishEntries;

}  // namespace velmora
