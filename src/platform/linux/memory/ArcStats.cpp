#include "platform/linux/memory/ArcStats.h"

#include "base/ParseNumber.h"

namespace velmora {

std::optional<std::uint64_t> parseReclaimableArc(std::string_view text) {
    std::optional<std::uint64_t> size;
    std::optional<std::uint64_t> smallest;
    // "size                            4    4294967296": name, kind of the value, value.
    while (!(size && smallest)) {
        const auto length = text.find('\n');
        if (length == std::string_view::npos) return std::nullopt;
        std::string_view line = text.substr(0, length);
        text.remove_prefix(length + 1);
        const std::string_view name = nextField(line);
        if (name != "size" && name != "c_min") continue;
        nextField(line);
        (name == "size" ? size : smallest) = parseNumber<std::uint64_t>(nextField(line));
    }
    return *size < *smallest ? 0 : *size - *smallest;
}

}  // namespace velmora
