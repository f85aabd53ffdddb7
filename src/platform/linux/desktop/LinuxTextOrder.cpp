#include "platform/linux/desktop/LinuxTextOrder.h"

#include "base/Utf8Text.h"

#include <langinfo.h>
#include <wchar.h>
#include <wctype.h>

#include <string_view>

namespace velmora {
namespace {

constexpr int kCategories = LC_CTYPE_MASK | LC_COLLATE_MASK;

}  // namespace

LinuxTextOrder::LinuxTextOrder(const std::string& locale) {
    m_locale = ::newlocale(kCategories, locale.c_str(), locale_t{});
    const bool knowsAllLetters = m_locale && std::string_view(::nl_langinfo_l(CODESET, m_locale)) == "UTF-8";
    if (knowsAllLetters) return;
    if (m_locale) ::freelocale(m_locale);
    m_locale = ::newlocale(kCategories, "C.UTF-8", locale_t{});
}

LinuxTextOrder::~LinuxTextOrder() {
    if (m_locale) ::freelocale(m_locale);
}

std::weak_ordering LinuxTextOrder::compareIgnoringCase(std::string_view left, std::string_view right) const {
    const std::wstring leftFolded = folded(left);
    const std::wstring rightFolded = folded(right);
    if (!m_locale) return leftFolded <=> rightFolded;
    return ::wcscoll_l(leftFolded.c_str(), rightFolded.c_str(), m_locale) <=> 0;
}

std::wstring LinuxTextOrder::folded(std::string_view text) const {
    std::wstring letters;
    letters.reserve(text.size());
    while (!text.empty()) {
        const auto letter = static_cast<wint_t>(takeCharacter(text));
        letters.push_back(static_cast<wchar_t>(m_locale ? ::towlower_l(letter, m_locale) : letter));
    }
    return letters;
}

}  // namespace velmora
