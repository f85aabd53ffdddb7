#pragma once

#include <string>
#include <string_view>

// Texts that come from the kernel or from a disk are bytes: nothing makes a file name or a label valid UTF-8.

namespace velmora {

/// What stands for a byte that is no part of a valid sequence.
inline constexpr char32_t kReplacementCharacter = U'\uFFFD';

/// Takes the next character off the front of `text`, which must not be empty. A byte that is no part of a
/// valid sequence is taken alone and gives the replacement character.
char32_t takeCharacter(std::string_view& text);

/// The text itself if it is valid UTF-8, else with the replacement character for each foreign byte.
std::string validUtf8(std::string_view text);

}  // namespace velmora
