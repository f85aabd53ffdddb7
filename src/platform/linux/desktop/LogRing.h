#pragma once

#include "base/Date.h"

#include <cstddef>
#include <deque>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// One line of the process's log.
struct LogLine {
    Date time;
    std::string category;
    std::string text;
    friend bool operator==(const LogLine&, const LogLine&) = default;
};

/// The last lines that this process logged, at most two million bytes of them. The system's own log cannot be
/// relied on for them: without storage on disk an ordinary user cannot read it. Callable from any thread.
class LogRing {
public:
    static constexpr std::size_t kCapacity = 2'000'000;

    /// Drops the oldest lines past the capacity; a longer line is cut at its end.
    void append(Date time, std::string_view category, std::string_view text);
    /// The lines at and after a moment, oldest first.
    std::vector<LogLine> since(Date start) const;

private:
    static std::size_t weight(const LogLine& line) {
        return sizeof(LogLine) + line.category.size() + line.text.size();
    }

    mutable std::mutex m_mutex;
    std::deque<LogLine> m_lines;
    std::size_t m_weight = 0;
};

}  // namespace velmora
