#include "platform/linux/memory/ZramStatistics.h"

#include "base/ParseNumber.h"

namespace velmora {

std::optional<std::uint64_t> parseZramMemory(std::string_view text) {
    std::string_view line = nextLine(text);
    nextField(line);
    nextField(line);
    const auto used = parseNumber<std::uint64_t>(nextField(line));
    // More numbers follow; without one the third may have lost digits.
    if (nextField(line).empty()) return std::nullopt;
    return used;
}

}  // namespace velmora
