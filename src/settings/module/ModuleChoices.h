#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// What a module's page offers, the same for every module.
namespace ModuleChoices {

/// Seconds.
inline constexpr std::array kIntervals = {1.0, 2.0, 3.0, 5.0, 10.0};

/// "5 s". The unit is the same in all languages.
std::string intervalTitle(double seconds);
/// The option's value of the interval dropdown; empty for an interval that is no option.
std::string intervalValue(double seconds);
/// Nothing for a value that is no option.
std::optional<double> intervalFromValue(std::string_view value);

/// Six digits, red first: blue, indigo, teal, green, orange, red, pink.
inline constexpr std::array<std::string_view, 7> kColors = {"0A84FF", "5856D6", "30B0C7", "34C759",
                                                            "FF9500", "FF3B30", "FF2D92"};

}  // namespace ModuleChoices
}  // namespace velmora
