#include "l10n/AppLanguage.h"

#include <algorithm>

namespace velmora {
namespace {

struct LanguageNames {
    std::string_view raw;
    std::string_view display;
};

constexpr std::array<LanguageNames, kLanguageCount> kNames = {{
    {"en", "English"},
    {"ja", "日本語"},
    {"ko", "한국어"},
    {"zh-Hans", "简体中文"},
    {"zh-Hant", "繁體中文"},
    {"de", "Deutsch"},
    {"fr", "Français"},
    {"es", "Español"},
    {"pt-BR", "Português (Brasil)"},
    {"ru", "Русский"},
    {"it", "Italiano"},
    {"nl", "Nederlands"},
    {"pl", "Polski"},
    {"tr", "Türkçe"},
}};

struct TagPrefix {
    std::string_view prefix;
    AppLanguage language;
};

// Tested in this order on the bare tag, whose subtags are not looked at. Every Portuguese is taken for the
// Brazilian one. Chinese stands for the simplified script unless a part of the tag says otherwise.
constexpr std::array kPrefixes = {
    TagPrefix{"ja", AppLanguage::ja},     TagPrefix{"ko", AppLanguage::ko},
    TagPrefix{"zh", AppLanguage::zhHans}, TagPrefix{"de", AppLanguage::de},
    TagPrefix{"fr", AppLanguage::fr},     TagPrefix{"es", AppLanguage::es},
    TagPrefix{"pt", AppLanguage::ptBR},   TagPrefix{"ru", AppLanguage::ru},
    TagPrefix{"it", AppLanguage::it},     TagPrefix{"nl", AppLanguage::nl},
    TagPrefix{"pl", AppLanguage::pl},     TagPrefix{"tr", AppLanguage::tr},
    TagPrefix{"en", AppLanguage::en},
};
constexpr std::array<std::string_view, 4> kTraditionalMarks = {"hant", "tw", "hk", "mo"};

std::string lowerCased(std::string_view tag) {
    std::string lower(tag);
    for (char& letter : lower) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return lower;
}

std::optional<AppLanguage> languageOfTag(std::string_view tag) {
    const std::string lower = lowerCased(tag);
    const auto row = std::ranges::find_if(
        kPrefixes, [&lower](const TagPrefix& candidate) { return lower.starts_with(candidate.prefix); });
    if (row == kPrefixes.end()) return std::nullopt;
    if (row->language != AppLanguage::zhHans) return row->language;
    const bool isTraditional = std::ranges::any_of(
        kTraditionalMarks, [&lower](std::string_view mark) { return lower.find(mark) != std::string::npos; });
    return isTraditional ? AppLanguage::zhHant : AppLanguage::zhHans;
}

}  // namespace

std::string_view rawValue(AppLanguage language) {
    return kNames[static_cast<std::size_t>(language)].raw;
}

std::string_view displayName(AppLanguage language) {
    return kNames[static_cast<std::size_t>(language)].display;
}

std::optional<AppLanguage> languageFromRawValue(std::string_view raw) {
    for (const AppLanguage language : kAllLanguages) {
        if (rawValue(language) == raw) return language;
    }
    return std::nullopt;
}

AppLanguage systemDefaultLanguage(const std::vector<std::string>& preferredTags) {
    for (const std::string& tag : preferredTags) {
        if (const auto language = languageOfTag(tag)) return *language;
    }
    return AppLanguage::en;
}

}  // namespace velmora
