#include "model/StatsFormat.h"

#include "base/FormatText.h"
#include "model/ByteStyle.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>

namespace velmora::StatsFormat {
namespace {

constexpr double kLargestSigned = 9223372036854775807.0;

/// Fixed decimals without the zeros at their end.
std::string trimmedDecimals(double value, int decimals, std::string_view separator) {
    std::string text = formatText(decimals == 0 ? "%.0f" : decimals == 1 ? "%.1f" : "%.2f", {value});
    const std::size_t point = text.find('.');
    if (point == std::string::npos) return text;
    text.erase(text.find_last_not_of('0') + 1);
    // The separator is nothing at the end of a figure.
    text.replace(point, 1, point + 1 == text.size() ? std::string_view() : separator);
    return text;
}

}  // namespace

std::string rate(double bytesPerSecond) {
    if (!(bytesPerSecond >= 1000)) return "0 KB/s";
    if (bytesPerSecond < 1e6) return formatText("%.0f KB/s", {bytesPerSecond / 1000});
    if (bytesPerSecond < 1e9) return formatText("%.1f MB/s", {bytesPerSecond / 1e6});
    return formatText("%.2f GB/s", {bytesPerSecond / 1e9});
}

std::string shortRate(double bytesPerSecond) {
    if (!(bytesPerSecond >= 1000)) return "0K";
    if (bytesPerSecond < 1e6) return formatText("%.0fK", {bytesPerSecond / 1000});
    if (bytesPerSecond < 1e8) return formatText("%.1fM", {bytesPerSecond / 1e6});
    if (bytesPerSecond < 1e9) return formatText("%.0fM", {bytesPerSecond / 1e6});
    return formatText("%.1fG", {bytesPerSecond / 1e9});
}

std::string uptime(double seconds) {
    const auto whole = std::isfinite(seconds) ? static_cast<std::int64_t>(std::clamp(seconds, 0.0, 1e15)) : 0;
    const std::int64_t minutes = whole / 60 % 60;
    const std::int64_t hours = whole / 3600;
    if (hours == 0) return formatText("%dm", {minutes});
    if (hours < 24) return formatText("%dh %dm", {hours, minutes});
    return formatText("%dd %dh %dm", {hours / 24, hours % 24, minutes});
}

std::string bytes(double byteCount) {
    return bytes(byteCount, kEnglishByteStyle);
}

std::string bytes(double byteCount, const ByteStyle& style) {
    const double whole =
        std::isnan(byteCount) ? 0 : std::trunc(std::clamp(byteCount, -kLargestSigned, kLargestSigned));
    const double size = std::fabs(whole);
    std::string text = whole < 0 ? "-" : "";
    if (size == 0) return std::string(style.zero);
    if (size < 1000) {
        const auto form = static_cast<std::size_t>(style.byteForm(static_cast<int>(size)));
        return text.append(formatText("%.0f", {size})).append(style.byteGap).append(style.byteNames[form]);
    }

    struct Unit {
        double size;
        int decimals;
    };
    constexpr std::array<Unit, 6> kUnits = {{{1e3, 0}, {1e6, 1}, {1e9, 2}, {1e12, 2}, {1e15, 2}, {1e18, 2}}};
    static_assert(std::tuple_size_v<decltype(ByteStyle::unitNames)> == kUnits.size());
    // A figure that would round up to a thousand of its unit is one of the next.
    std::size_t index = 0;
    while (index + 1 < kUnits.size()) {
        const double scale = kUnits[index].decimals == 0 ? 1 : kUnits[index].decimals == 1 ? 10 : 100;
        if (std::nearbyint(size / kUnits[index].size * scale) / scale < 1000) break;
        ++index;
    }
    const Unit& unit = kUnits[index];
    text += trimmedDecimals(size / unit.size, unit.decimals, style.decimalSeparator);
    return text.append(style.unitGap).append(style.unitNames[index]);
}

std::string percent(double fraction) {
    const double held = fraction > 0 ? std::min(fraction, 1.0) : 0.0;
    return formatText("%.0f%%", {held * 100});
}

}  // namespace velmora::StatsFormat
