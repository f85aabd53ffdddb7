#include "platform/linux/network/ProcNetDev.h"

#include "base/ParseNumber.h"

#include <optional>

namespace velmora::ProcNetDev {
namespace {

/// Eight figures of what was received stand in front of the sent bytes.
constexpr int kFieldsBeforeSent = 8;

std::optional<Row> parseLine(std::string_view line) {
    // A name may hold a colon, but no blank; what follows the last colon of its word are figures.
    const auto begin = line.find_first_not_of(' ');
    const auto colon = line.rfind(':');
    if (begin == std::string_view::npos || colon == std::string_view::npos || colon <= begin)
        return std::nullopt;
    Row row{.name = line.substr(begin, colon - begin)};
    if (row.name.find_first_of(" |") != std::string_view::npos) return std::nullopt;
    std::string_view figures = line.substr(colon + 1);
    for (int field = 0; field <= kFieldsBeforeSent; ++field) {
        const auto number = parseNumber<std::uint64_t>(nextField(figures));
        if (!number) return std::nullopt;
        if (field == 0) row.received = *number;
        row.sent = *number;
    }
    return row;
}

}  // namespace

void parse(std::string_view text, std::vector<Row>& rows) {
    rows.clear();
    while (!text.empty()) {
        if (const auto row = parseLine(nextLine(text))) rows.push_back(*row);
    }
}

}  // namespace velmora::ProcNetDev
