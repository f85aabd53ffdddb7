#include "platform/linux/desktop/DesktopEntryLines.h"

#include "base/ParseNumber.h"

namespace velmora {
namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const auto begin = text.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

}  // namespace

DesktopEntryLines::DesktopEntryLines(std::string_view text) : m_rest(text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (m_rest.starts_with(kByteOrderMark)) m_rest.remove_prefix(kByteOrderMark.size());
}

bool DesktopEntryLines::next() {
    while (!m_rest.empty()) {
        const std::string_view line = trimmed(nextLine(m_rest));
        if (line.starts_with('[')) {
            takeGroup(line);
        } else if (!m_group.empty() && takeKey(line)) {
            return true;
        }
    }
    return false;
}

void DesktopEntryLines::takeGroup(std::string_view line) {
    // What stands below a malformed line belongs to no group that could be named.
    m_group = line.ends_with(']') ? line.substr(1, line.size() - 2) : std::string_view();
}

bool DesktopEntryLines::takeKey(std::string_view line) {
    const auto equals = line.find('=');
    if (line.starts_with('#') || equals == std::string_view::npos) return false;
    m_key = trimmed(line.substr(0, equals));
    m_locale = {};
    m_value = trimmed(line.substr(equals + 1));
    const auto bracket = m_key.find('[');
    if (bracket != std::string_view::npos) {
        if (!m_key.ends_with(']')) return false;
        m_locale = m_key.substr(bracket + 1, m_key.size() - bracket - 2);
        m_key = m_key.substr(0, bracket);
        if (m_locale.empty()) return false;
    }
    return !m_key.empty();
}

}  // namespace velmora
