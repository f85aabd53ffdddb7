#include "base/Utf8Text.h"

#include <cstddef>

namespace velmora {
namespace {

struct Lead {
    std::size_t length = 0;  ///< Bytes of the sequence; 0 for a byte that begins none.
    char32_t bits = 0;       ///< What the lead byte adds to the character.
    char32_t smallest = 0;   ///< Below it, a shorter sequence would have done.
};

Lead leadOf(unsigned char byte) {
    if (byte < 0x80) return {1, byte, 0};
    if (byte >= 0xC2 && byte <= 0xDF) return {2, byte & 0x1Fu, 0x80};
    if (byte >= 0xE0 && byte <= 0xEF) return {3, byte & 0x0Fu, 0x800};
    if (byte >= 0xF0 && byte <= 0xF4) return {4, byte & 0x07u, 0x10000};
    return {};
}

bool isCharacter(char32_t character, char32_t smallest) {
    const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    return character >= smallest && character <= 0x10FFFF && !isSurrogate;
}

}  // namespace

char32_t takeCharacter(std::string_view& text) {
    const Lead lead = leadOf(static_cast<unsigned char>(text.front()));
    char32_t character = lead.bits;
    bool isValid = lead.length > 0 && lead.length <= text.size();
    for (std::size_t index = 1; isValid && index < lead.length; ++index) {
        const auto byte = static_cast<unsigned char>(text[index]);
        isValid = (byte & 0xC0u) == 0x80u;
        character = character << 6 | (byte & 0x3Fu);
    }
    isValid = isValid && isCharacter(character, lead.smallest);
    text.remove_prefix(isValid ? lead.length : 1);
    return isValid ? character : kReplacementCharacter;
}

std::string validUtf8(std::string_view text) {
    constexpr std::string_view kReplacement = "\uFFFD";
    std::string valid;
    valid.reserve(text.size());
    while (!text.empty()) {
        const std::string_view before = text;
        const char32_t character = takeCharacter(text);
        const std::string_view taken = before.substr(0, before.size() - text.size());
        // A replacement character of the text's own is three bytes long and passes as it is.
        valid += character == kReplacementCharacter && taken.size() == 1 ? kReplacement : taken;
    }
    return valid;
}

}  // namespace velmora
