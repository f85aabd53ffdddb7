#include "platform/linux/sensors/HwmonValue.h"

#include "base/ParseNumber.h"

namespace velmora {

std::optional<std::int32_t> parseHwmonValue(std::string_view text) {
    if (!text.ends_with('\n')) return std::nullopt;
    return parseNumber<std::int32_t>(text.substr(0, text.size() - 1));
}

std::optional<double> parseMillidegrees(std::string_view text) {
    const auto value = parseHwmonValue(text);
    if (!value) return std::nullopt;
    return *value / 1000.0;
}

}  // namespace velmora
