#include "platform/linux/desktop/DesktopEntryLocales.h"

#include <algorithm>
#include <utility>

namespace velmora {
namespace {

struct Tag {
    std::string language;
    std::string modifier;  ///< What an entry calls the script.
    std::string country;
};

bool isUpper(char letter) {
    return letter >= 'A' && letter <= 'Z';
}

/// The scripts that entries tell apart. Those of Chinese are told by country.
std::string modifierOf(std::string_view script) {
    if (script == "Latn") return "latin";
    if (script == "Cyrl") return "cyrillic";
    if (script == "Deva") return "devanagari";
    return {};
}

Tag parse(std::string_view text) {
    Tag tag;
    std::string_view script;
    for (std::size_t part = 0; !text.empty(); ++part) {
        const auto length = std::min(text.find_first_of("-_"), text.size());
        const std::string_view word = text.substr(0, length);
        if (part == 0) {
            tag.language = word;
        } else if (word.size() == 4 && isUpper(word.front())) {
            script = word;
        } else if (word.size() == 2 && isUpper(word.front())) {
            tag.country = word;
        }
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    tag.modifier = modifierOf(script);
    if (tag.language == "zh" && tag.country.empty()) {
        if (script == "Hans") tag.country = "CN";
        if (script == "Hant") tag.country = "TW";
    }
    return tag;
}

/// Without the character set that old entries put in: "de_DE.UTF-8@euro" is "de_DE@euro".
std::string_view withoutCharacterSet(std::string_view locale, std::string& storage) {
    const auto dot = locale.find('.');
    if (dot == std::string_view::npos) return locale;
    const auto at = locale.find('@', dot);
    storage = locale.substr(0, dot);
    if (at != std::string_view::npos) storage += locale.substr(at);
    return storage;
}

}  // namespace

DesktopEntryLocales::DesktopEntryLocales(const std::vector<std::string>& tags) {
    for (const std::string& text : tags) {
        const Tag tag = parse(text);
        if (tag.language.empty()) continue;
        if (tag.language == "C" || tag.language == "POSIX") return;
        const std::string withCountry = tag.language + "_" + tag.country;
        if (!tag.country.empty() && !tag.modifier.empty()) add(withCountry + "@" + tag.modifier);
        if (!tag.country.empty()) add(withCountry);
        if (!tag.modifier.empty()) add(tag.language + "@" + tag.modifier);
        add(tag.language);
        if (tag.language == "en") return;
    }
}

std::size_t DesktopEntryLocales::rank(std::string_view locale) const {
    if (locale.empty()) return worst();
    std::string storage;
    const auto name = std::ranges::find(m_names, withoutCharacterSet(locale, storage));
    return name != m_names.end() ? static_cast<std::size_t>(name - m_names.begin()) : worst() + 1;
}

void DesktopEntryLocales::add(std::string name) {
    if (std::ranges::find(m_names, name) == m_names.end()) m_names.push_back(std::move(name));
}

}  // namespace velmora
