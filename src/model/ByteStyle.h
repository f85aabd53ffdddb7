#pragma once

#include <array>
#include <string_view>

namespace velmora {

/// The forms that a noun takes after a whole number in the languages of the interface. English knows the
/// first and the last.
enum class ByteForm { one, few, many };

/// One for 1, many for every other number: the rule of English and most of its neighbours.
constexpr ByteForm oneOrManyForm(int count) {
    return count == 1 ? ByteForm::one : ByteForm::many;
}

/// How a language writes a byte total: its words and signs, none of the arithmetic.
struct ByteStyle {
    /// Stands between the whole and the fraction.
    std::string_view decimalSeparator;
    /// The whole text of a total of nothing.
    std::string_view zero;
    /// Between a count of bytes and its noun; empty where the language sets none.
    std::string_view byteGap;
    /// The noun's forms, in the order of `ByteForm`.
    std::array<std::string_view, 3> byteNames;
    /// Which form follows a count of 1 to 999.
    ByteForm (*byteForm)(int count);
    /// Between a figure and a larger unit; empty where the language sets none.
    std::string_view unitGap;
    /// Kilobyte, megabyte, gigabyte, terabyte, petabyte, exabyte.
    std::array<std::string_view, 6> unitNames;

    bool operator==(const ByteStyle&) const = default;
};

inline constexpr ByteStyle kEnglishByteStyle = {
    .decimalSeparator = ".",
    .zero = "Zero KB",
    .byteGap = " ",
    .byteNames = {"byte", "bytes", "bytes"},
    .byteForm = oneOrManyForm,
    .unitGap = " ",
    .unitNames = {"KB", "MB", "GB", "TB", "PB", "EB"},
};

}  // namespace velmora
