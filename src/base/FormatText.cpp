#include "base/FormatText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace velmora {
namespace {

struct Conversion {
    bool leftAligned = false;
    bool zeroPadded = false;
    char positiveSign = 0;
    int width = 0;
    int precision = -1;
    char letter = 0;
    std::size_t length = 0;  // Of the conversion in the format, with the percent sign.
};

// A width or precision past this is a mistake in the format, not a wish.
constexpr int kLargestWidth = 400;

int readDigits(std::string_view format, std::size_t& position) {
    int number = 0;
    while (position < format.size() && format[position] >= '0' && format[position] <= '9') {
        number = std::min(number * 10 + (format[position] - '0'), kLargestWidth);
        ++position;
    }
    return number;
}

/// `format` begins with a percent sign; nothing for a conversion that the format ends in.
std::optional<Conversion> readConversion(std::string_view format) {
    Conversion conversion;
    std::size_t position = 1;
    for (; position < format.size(); ++position) {
        const char flag = format[position];
        if (flag == '-') {
            conversion.leftAligned = true;
        } else if (flag == '0') {
            conversion.zeroPadded = true;
        } else if (flag == '+') {
            conversion.positiveSign = '+';
        } else if (flag == ' ') {
            if (!conversion.positiveSign) conversion.positiveSign = ' ';
        } else {
            break;
        }
    }
    conversion.width = readDigits(format, position);
    if (position < format.size() && format[position] == '.') {
        ++position;
        conversion.precision = readDigits(format, position);
    }
    while (position < format.size() &&
           std::string_view("hlLzjtq").find(format[position]) != std::string_view::npos) {
        ++position;
    }
    if (position >= format.size()) return std::nullopt;
    conversion.letter = format[position];
    conversion.length = position + 1;
    return conversion;
}

void appendPadded(std::string& text, std::string_view sign, std::string_view body,
                  const Conversion& conversion, bool zerosAllowed) {
    const std::size_t length = sign.size() + body.size();
    const auto width = static_cast<std::size_t>(conversion.width);
    const std::size_t padding = width > length ? width - length : 0;
    if (conversion.leftAligned) {
        text.append(sign).append(body).append(padding, ' ');
    } else if (conversion.zeroPadded && zerosAllowed) {
        text.append(sign).append(padding, '0').append(body);
    } else {
        text.append(padding, ' ').append(sign).append(body);
    }
}

std::string_view signText(bool negative, const Conversion& conversion) {
    if (negative) return "-";
    if (conversion.positiveSign == '+') return "+";
    return conversion.positiveSign ? " " : "";
}

void appendInteger(std::string& text, bool negative, std::uint64_t magnitude, const Conversion& conversion) {
    std::array<char, 24> digits{};
    const bool hexadecimal = conversion.letter == 'x' || conversion.letter == 'X';
    const auto result =
        std::to_chars(digits.data(), digits.data() + digits.size(), magnitude, hexadecimal ? 16 : 10);
    if (conversion.letter == 'X') {
        for (char* digit = digits.data(); digit != result.ptr; ++digit) {
            if (*digit >= 'a') *digit = static_cast<char>(*digit - 'a' + 'A');
        }
    }
    const std::string_view body(digits.data(), static_cast<std::size_t>(result.ptr - digits.data()));
    const bool isSigned = conversion.letter == 'd' || conversion.letter == 'i';
    appendPadded(text, isSigned ? signText(negative, conversion) : "", body, conversion, true);
}

void appendDouble(std::string& text, double value, const Conversion& conversion) {
    const std::string_view sign = signText(std::signbit(value), conversion);
    if (!std::isfinite(value)) {
        appendPadded(text, sign, std::isnan(value) ? "nan" : "inf", conversion, false);
        return;
    }
    // Fixed notation of the largest double has 309 digits before the point.
    std::array<char, 320 + kLargestWidth> digits{};
    const int precision = conversion.precision < 0 ? 6 : conversion.precision;
    const auto notation = conversion.letter == 'f'   ? std::chars_format::fixed
                          : conversion.letter == 'e' ? std::chars_format::scientific
                                                     : std::chars_format::general;
    const auto result =
        std::to_chars(digits.data(), digits.data() + digits.size(), std::fabs(value), notation, precision);
    appendPadded(text, sign, {digits.data(), static_cast<std::size_t>(result.ptr - digits.data())},
                 conversion, true);
}

/// False if the argument is not of the conversion's kind.
bool appendArgument(std::string& text, const FormatArgument& argument, const Conversion& conversion) {
    const auto& value = argument.value();
    switch (conversion.letter) {
        case 'd':
        case 'i':
        case 'u':
        case 'x':
        case 'X':
            if (const auto* number = std::get_if<std::int64_t>(&value)) {
                const bool negative = *number < 0 && (conversion.letter == 'd' || conversion.letter == 'i');
                const auto bits = static_cast<std::uint64_t>(*number);
                appendInteger(text, negative, negative ? 0 - bits : bits, conversion);
                return true;
            }
            if (const auto* number = std::get_if<std::uint64_t>(&value)) {
                appendInteger(text, false, *number, conversion);
                return true;
            }
            return false;
        case 'f':
        case 'e':
        case 'g':
            if (const auto* number = std::get_if<double>(&value)) {
                appendDouble(text, *number, conversion);
                return true;
            }
            return false;
        case 's':
        case '@':
            if (const auto* words = std::get_if<std::string_view>(&value)) {
                const auto length =
                    conversion.precision < 0 ? words->size() : static_cast<std::size_t>(conversion.precision);
                appendPadded(text, "", words->substr(0, length), conversion, false);
                return true;
            }
            return false;
        default:
            return false;
    }
}

}  // namespace

void appendFormat(std::string& text, std::string_view format,
                  std::initializer_list<FormatArgument> arguments) {
    auto next = arguments.begin();
    while (!format.empty()) {
        const auto percent = format.find('%');
        text.append(format.substr(0, percent));
        if (percent == std::string_view::npos) return;
        format.remove_prefix(percent);

        const auto conversion = readConversion(format);
        if (!conversion) {
            text.append(format);
            return;
        }
        if (conversion->letter == '%') {
            text.push_back('%');
        } else if (next == arguments.end() || !appendArgument(text, *next++, *conversion)) {
            text.append(format.substr(0, conversion->length));
        }
        format.remove_prefix(conversion->length);
    }
}

std::string formatText(std::string_view format, std::initializer_list<FormatArgument> arguments) {
    std::string text;
    appendFormat(text, format, arguments);
    return text;
}

}  // namespace velmora
