#include "platform/linux/processor/ProcLoadAverage.h"

#include "base/ParseNumber.h"

namespace velmora {

std::optional<ProcLoadAverage> parseProcLoadAverage(std::string_view text) {
    std::string_view line = nextLine(text);
    const auto one = parseNumber<double>(nextField(line));
    const auto five = parseNumber<double>(nextField(line));
    const auto fifteen = parseNumber<double>(nextField(line));
    const std::string_view counts = nextField(line);
    const auto slash = counts.find('/');
    if (!one || !five || !fifteen || slash == std::string_view::npos) return std::nullopt;
    const auto threads = parseNumber<int>(counts.substr(slash + 1));
    // Behind the counts stands the newest process; without it the line is cut.
    if (!threads || nextField(line).empty()) return std::nullopt;
    return ProcLoadAverage{{*one, *five, *fifteen}, *threads};
}

}  // namespace velmora
