#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace velmora {

/// The whole number of a sensor's attribute, in the attribute's own unit; nothing for any other text, for one
/// without its newline, which may have lost digits, and for numbers that no sensor can mean.
std::optional<std::int32_t> parseHwmonValue(std::string_view text);

/// Degrees Celsius of a temperature attribute, which counts thousandths.
std::optional<double> parseMillidegrees(std::string_view text);

}  // namespace velmora
