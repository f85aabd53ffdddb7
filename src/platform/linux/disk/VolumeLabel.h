#pragma once

#include <optional>
#include <string>
#include <string_view>

// The names that volumes go by. Both are valid UTF-8 and not empty.

namespace velmora {

/// The file system's label in a record of the device database, /run/udev/data/b<number>; nothing if there is
/// none. Bytes that are not plain letters stand there as \x and two digits.
std::optional<std::string> parseVolumeLabel(std::string_view record);

/// NAME of an os-release file (os-release(5)), such as "Debian GNU/Linux"; nothing if there is none.
std::optional<std::string> parseSystemName(std::string_view text);

}  // namespace velmora
