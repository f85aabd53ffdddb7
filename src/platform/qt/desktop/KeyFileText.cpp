#include "platform/qt/desktop/KeyFileText.h"

#include "base/ParseNumber.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace velmora {
namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const auto begin = text.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

using Channels = std::array<int, 3>;

std::optional<Channels> hexChannels(std::string_view digits) {
    if (digits.size() != 6) return std::nullopt;
    Channels channels{};
    for (std::size_t index = 0; index < channels.size(); ++index) {
        const auto value = parseNumber<unsigned>(digits.substr(2 * index, 2), 16);
        if (!value) return std::nullopt;
        channels[index] = static_cast<int>(*value);
    }
    return channels;
}

std::optional<Channels> decimalChannels(std::string_view text) {
    Channels channels{};
    for (int& channel : channels) {
        const auto length = std::min(text.find(','), text.size());
        const auto value = parseNumber<int>(trimmed(text.substr(0, length)));
        if (!value || *value < 0 || *value > 255) return std::nullopt;
        channel = *value;
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return channels;
}

}  // namespace

std::optional<std::string_view> keyFileValue(std::string_view text, std::string_view group,
                                             std::string_view key) {
    std::optional<std::string_view> value;
    bool inGroup = false;
    while (!text.empty()) {
        const std::string_view line = trimmed(nextLine(text));
        if (line.empty() || line.front() == '#') continue;
        if (line.front() == '[') {
            inGroup = line.back() == ']' && line.size() >= 2 && line.substr(1, line.size() - 2) == group;
            continue;
        }
        const auto equals = line.find('=');
        if (!inGroup || equals == std::string_view::npos) continue;
        if (trimmed(line.substr(0, equals)) == key) value = trimmed(line.substr(equals + 1));
    }
    return value;
}

double lightness(double red, double green, double blue) {
    return 0.299 * red + 0.587 * green + 0.114 * blue;
}

std::optional<double> lightnessOfColorText(std::string_view text) {
    text = trimmed(text);
    const auto channels = text.starts_with('#') ? hexChannels(text.substr(1)) : decimalChannels(text);
    if (!channels) return std::nullopt;
    return lightness((*channels)[0] / 255.0, (*channels)[1] / 255.0, (*channels)[2] / 255.0);
}

}  // namespace velmora
