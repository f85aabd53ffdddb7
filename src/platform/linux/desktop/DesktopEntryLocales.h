#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// Which of an entry's translations the user reads best. An entry names locales as the C library does,
/// `language_COUNTRY@modifier`.
class DesktopEntryLocales {
public:
    /// Reads what is meant for everybody.
    DesktopEntryLocales() = default;
    /// For the user's language tags, best first, such as "de-DE" or "sr-Latn-RS". What is meant for everybody
    /// is English, so nothing behind the first English tag counts.
    explicit DesktopEntryLocales(const std::vector<std::string>& tags);

    /// 0 is the best, `worst()` that of a value without a locale. Above that stand locales that the user does
    /// not read.
    std::size_t rank(std::string_view locale) const;
    std::size_t worst() const { return m_names.size(); }

private:
    void add(std::string name);

    std::vector<std::string> m_names;
};

}  // namespace velmora
