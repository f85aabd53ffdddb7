#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velmora {
struct ByteStyle;
}

/// The texts of figures, the same in every part of the program. No locale takes part in the digits.
namespace velmora::StatsFormat {

/// Stands where a figure is absent.
inline constexpr std::string_view kAbsent = "—";

/// "0 KB/s" below 1000, negative or not a number; then KB, MB with one and GB with two decimals.
std::string rate(double bytesPerSecond);
/// The same for the status bar, where width is scarce: "0K", "12K", "3.4M", "120M", "1.2G".
std::string shortRate(double bytesPerSecond);
/// "5m", "3h 0m", "2d 4h 10m"; cut to whole seconds, so less than a minute is "0m".
std::string uptime(double seconds);
/// A byte total in decimal units as a file manager writes it: "Zero KB", "1 byte", "512 bytes", "1 KB", one
/// decimal for MB, two from GB on, trailing zeros dropped.
std::string bytes(double byteCount);
/// The same figure in the words and signs of another language.
std::string bytes(double byteCount, const ByteStyle& style);
/// A fraction as "42%", held within 0 and 100.
std::string percent(double fraction);

}  // namespace velmora::StatsFormat
