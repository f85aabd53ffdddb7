#pragma once

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>
#include <type_traits>

namespace velmora {

/// The whole text as a number, independent of the locale; nothing for empty, partial or out-of-range text.
/// No blanks and no leading "+" are accepted. `base` counts for integers only.
template <typename Number>
std::optional<Number> parseNumber(std::string_view text, int base = 10) {
    Number number{};
    std::from_chars_result result{};
    if constexpr (std::is_floating_point_v<Number>) {
        result = std::from_chars(text.data(), text.data() + text.size(), number);
    } else {
        result = std::from_chars(text.data(), text.data() + text.size(), number, base);
    }
    if (text.empty() || result.ec != std::errc{} || result.ptr != text.data() + text.size())
        return std::nullopt;
    return number;
}

/// Takes the next run of non-blank characters off the front of `text`; empty at the end.
inline std::string_view nextField(std::string_view& text) {
    // Fields are a few characters long: a loop beats the library's searches, which are made for long texts.
    constexpr auto isBlank = [](char letter) { return letter == ' ' || letter == '\t' || letter == '\r'; };
    const auto begin = std::find_if_not(text.begin(), text.end(), isBlank);
    const auto end = std::find_if(begin, text.end(), isBlank);
    text = {end, text.end()};
    return {begin, end};
}

/// Takes the next line off the front of `text`, without its newline.
inline std::string_view nextLine(std::string_view& text) {
    const auto length = text.find('\n');
    const std::string_view line = text.substr(0, length);
    text.remove_prefix(length == std::string_view::npos ? text.size() : length + 1);
    return line;
}

}  // namespace velmora
