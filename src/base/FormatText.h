#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

namespace velmora {

/// One value for a conversion of `formatText`.
class FormatArgument {
public:
    template <std::signed_integral Integer>
    FormatArgument(Integer value) : m_value(static_cast<std::int64_t>(value)) {}
    template <std::unsigned_integral Integer>
    FormatArgument(Integer value) : m_value(static_cast<std::uint64_t>(value)) {}
    FormatArgument(double value) : m_value(value) {}
    FormatArgument(std::string_view value) : m_value(value) {}
    FormatArgument(const std::string& value) : m_value(std::string_view(value)) {}
    FormatArgument(const char* value) : m_value(std::string_view(value)) {}

    const std::variant<std::int64_t, std::uint64_t, double, std::string_view>& value() const {
        return m_value;
    }

private:
    std::variant<std::int64_t, std::uint64_t, double, std::string_view> m_value;
};

/// What C's printf writes in the C locale, whatever the user's locale is. Conversions: `%d`, `%u`, `%x`,
/// `%X`,
/// `%f`, `%e`, `%g`, `%s`, `%@` (a text) and `%%`, with the flags `-`, `0`, `+` and blank, a width and a
/// precision; length letters (`l`, `ll`, `z`, `j`) are accepted and mean nothing. A conversion without an
/// argument, or with one of another kind, writes the conversion itself, so a wrong format shows.
std::string formatText(std::string_view format, std::initializer_list<FormatArgument> arguments);

/// The same, appended to a text whose storage is reused.
void appendFormat(std::string& text, std::string_view format,
                  std::initializer_list<FormatArgument> arguments);

}  // namespace velmora
