#include "platform/null/MemoryDefaults.h"

namespace velmora {

std::optional<nlohmann::json> MemoryDefaults::read(std::string_view key) const {
    const auto entry = m_values.find(key);
    if (entry == m_values.end()) return std::nullopt;
    return entry->second;
}

void MemoryDefaults::write(std::string_view key, const nlohmann::json& value, Urgency) {
    const auto entry = m_values.find(key);
    if (entry != m_values.end()) {
        entry->second = value;
    } else {
        m_values.emplace(key, value);
    }
}

void MemoryDefaults::remove(std::string_view key) {
    const auto entry = m_values.find(key);
    if (entry != m_values.end()) m_values.erase(entry);
}

}  // namespace velmora
