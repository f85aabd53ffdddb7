#pragma once

#include <optional>
#include <string_view>

namespace velmora {

/// The value of a key in a group of a configuration file: `[Group]` lines, `Key=Value` lines, comments behind
/// `#`. Nothing if the group or the key is missing; the last one counts. The result points into `text`.
std::optional<std::string_view> keyFileValue(std::string_view text, std::string_view group,
                                             std::string_view key);

/// How light a colour is, from 0 for black to 1 for white.
double lightness(double red, double green, double blue);
/// The same of a colour written as "R,G,B" from 0 through 255, alpha behind it allowed, or as "#RRGGBB".
std::optional<double> lightnessOfColorText(std::string_view text);

}  // namespace velmora
