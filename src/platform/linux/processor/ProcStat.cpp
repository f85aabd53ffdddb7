#include "platform/linux/processor/ProcStat.h"

#include "base/ParseNumber.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <cstring>

namespace velmora::ProcStat {
namespace {

enum Column { kUser, kNice, kSystem, kIdle, kIOWait, kIrq, kSoftIrq, kSteal, kColumns };

/// "cpu3 1403 0 873 118650 9 0 6 3 0 0". Old kernels stop after the fourth column.
std::optional<CoreTimes> parseCoreLine(std::string_view line) {
    constexpr std::string_view kPrefix = "cpu";
    const char* next = line.data() + kPrefix.size();
    const char* const end = line.data() + line.size();
    CoreTimes times;
    auto result = std::from_chars(next, end, times.cpu);
    if (result.ec != std::errc{} || times.cpu < 0) return std::nullopt;

    std::array<std::uint64_t, kColumns> columns{};
    std::size_t column = 0;
    for (; column < columns.size(); ++column) {
        next = result.ptr;
        if (next == end) break;
        if (*next != ' ') return std::nullopt;
        while (next != end && *next == ' ') ++next;
        if (next == end) break;
        result = std::from_chars(next, end, columns[column]);
        if (result.ec != std::errc{}) return std::nullopt;
    }
    if (column <= kIdle) return std::nullopt;
    times.user = columns[kUser];
    times.nice = columns[kNice];
    times.system = columns[kSystem] + columns[kIrq] + columns[kSoftIrq] + columns[kSteal];
    times.idle = columns[kIdle] + columns[kIOWait];
    return times;
}

}  // namespace

void parseCoreTimes(std::string_view text, std::vector<CoreTimes>& cores) {
    cores.clear();
    while (text.starts_with("cpu")) {
        const auto length = text.find('\n');
        // A line without its end may have lost digits.
        if (length == std::string_view::npos) return;
        // The first line, "cpu " with a blank, is the sum of the others.
        if (text[3] != ' ') {
            if (const auto times = parseCoreLine(text.substr(0, length))) cores.push_back(*times);
        }
        text.remove_prefix(length + 1);
    }
}

std::optional<std::int64_t> parseBootTime(std::string_view text) {
    // The line is the fifth from the end, behind the long ones, so it is looked for from there.
    constexpr std::string_view kName = "btime ";
    std::size_t end = text.rfind('\n');
    while (end != std::string_view::npos && end > 0) {
        const void* const newline = ::memrchr(text.data(), '\n', end);
        const std::size_t begin =
            newline ? static_cast<std::size_t>(static_cast<const char*>(newline) - text.data()) + 1 : 0;
        const std::string_view line = text.substr(begin, end - begin);
        if (line.starts_with(kName)) return parseNumber<std::int64_t>(line.substr(kName.size()));
        if (begin == 0) break;
        end = begin - 1;
    }
    return std::nullopt;
}

}  // namespace velmora::ProcStat
