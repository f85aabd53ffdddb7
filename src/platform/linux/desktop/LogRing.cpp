#include "platform/linux/desktop/LogRing.h"

namespace velmora {

void LogRing::append(Date time, std::string_view category, std::string_view text) {
    constexpr std::size_t kLongestText = kCapacity / 2;
    constexpr std::size_t kLongestCategory = 100;
    LogLine line{time, std::string(category.substr(0, kLongestCategory)),
                 std::string(text.substr(0, kLongestText))};
    const std::lock_guard lock(m_mutex);
    m_weight += weight(line);
    m_lines.push_back(std::move(line));
    while (m_weight > kCapacity) {
        m_weight -= weight(m_lines.front());
        m_lines.pop_front();
    }
}

std::vector<LogLine> LogRing::since(Date start) const {
    const std::lock_guard lock(m_mutex);
    std::vector<LogLine> lines;
    for (const LogLine& line : m_lines) {
        if (line.time >= start) lines.push_back(line);
    }
    return lines;
}

}  // namespace velmora
