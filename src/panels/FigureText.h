#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace velmora {
struct ByteStyle;
}

/// Texts of figures that only panels show.
namespace velmora::FigureText {

/// A size in bytes; what is negative or not finite counts as 0.
std::string bytes(double size, const ByteStyle& style);
/// "56.4 °C"; the absent text for what is not finite.
std::string celsius(double temperature);
/// "56°", for places without room for a unit.
std::string degrees(double temperature);
/// "User 29%, System 13%": what a screen reader says of a picture. A text without a label stands alone.
std::string spoken(std::initializer_list<std::pair<std::string_view, std::string_view>> figures);

}  // namespace velmora::FigureText
