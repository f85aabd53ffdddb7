#include "platform/linux/disk/VolumeLabel.h"

#include "base/ParseNumber.h"
#include "base/Utf8Text.h"

#include <cstdint>

namespace velmora {
namespace {

/// Control characters would break the line in which a name is shown.
std::optional<std::string> shownName(std::string bytes) {
    std::erase_if(bytes,
                  [](char letter) { return static_cast<unsigned char>(letter) < 0x20 || letter == 0x7F; });
    const auto begin = bytes.find_first_not_of(' ');
    if (begin == std::string::npos) return std::nullopt;
    return validUtf8(std::string_view(bytes).substr(begin, bytes.find_last_not_of(' ') + 1 - begin));
}

std::string decodeHexEscapes(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        const auto byte = text.starts_with("\\x") && text.size() >= 4
                              ? parseNumber<std::uint8_t>(text.substr(2, 2), 16)
                              : std::nullopt;
        plain.push_back(byte ? static_cast<char>(*byte) : text.front());
        text.remove_prefix(byte ? 4 : 1);
    }
    return plain;
}

/// A shell's word: plain, in single quotes, or in double quotes with a backslash before what is special.
std::string unquote(std::string_view word) {
    const char quote = word.empty() ? '\0' : word.front();
    if (quote != '"' && quote != '\'') return std::string(word.substr(0, word.find_first_of(" \t\r")));
    std::string plain;
    for (word.remove_prefix(1); !word.empty() && word.front() != quote; word.remove_prefix(1)) {
        if (quote == '"' && word.front() == '\\' && word.size() > 1) word.remove_prefix(1);
        plain.push_back(word.front());
    }
    return plain;
}

/// What follows the key on its last line; nothing without such a line.
std::optional<std::string_view> lastValue(std::string_view text, std::string_view key) {
    std::optional<std::string_view> value;
    while (!text.empty()) {
        const std::string_view line = nextLine(text);
        if (line.starts_with(key)) value = line.substr(key.size());
    }
    return value;
}

}  // namespace

std::optional<std::string> parseVolumeLabel(std::string_view record) {
    const auto label = lastValue(record, "E:ID_FS_LABEL_ENC=");
    return label ? shownName(decodeHexEscapes(*label)) : std::nullopt;
}

std::optional<std::string> parseSystemName(std::string_view text) {
    const auto name = lastValue(text, "NAME=");
    return name ? shownName(unquote(*name)) : std::nullopt;
}

}  // namespace velmora
