#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// The languages of the interface, in the order of the picker.
enum class AppLanguage { en, ja, ko, zhHans, zhHant, de, fr, es, ptBR, ru, it, nl, pl, tr };

inline constexpr std::array kAllLanguages = {
    AppLanguage::en, AppLanguage::ja, AppLanguage::ko, AppLanguage::zhHans, AppLanguage::zhHant,
    AppLanguage::de, AppLanguage::fr, AppLanguage::es, AppLanguage::ptBR,   AppLanguage::ru,
    AppLanguage::it, AppLanguage::nl, AppLanguage::pl, AppLanguage::tr};
inline constexpr std::size_t kLanguageCount = kAllLanguages.size();

/// The language tag: "en", "ja", "zh-Hans", "pt-BR" …
std::string_view rawValue(AppLanguage language);
/// The language's own name for itself.
std::string_view displayName(AppLanguage language);
/// Exact and case sensitive; nothing for any other text.
std::optional<AppLanguage> languageFromRawValue(std::string_view raw);
/// The language of the first tag that names one of ours by its beginning; English if none does.
AppLanguage systemDefaultLanguage(const std::vector<std::string>& preferredTags);

}  // namespace velmora
