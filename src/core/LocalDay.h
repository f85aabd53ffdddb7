#pragma once

#include "base/Date.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// Names the calendar day and month of a moment in the process's local time zone, as text that is stored and
/// compared. Main thread only.
class LocalDay {
public:
    LocalDay();

    /// "yyyy-MM-dd". The text stays valid until the next call.
    const std::string& key(Date now);

    /// "yyyy-MM" of a day's key.
    static std::string_view monthOf(std::string_view dayKey) { return dayKey.substr(0, 7); }

private:
    std::optional<std::int64_t> m_quarter;
    std::string m_key;
};

}  // namespace velmora
