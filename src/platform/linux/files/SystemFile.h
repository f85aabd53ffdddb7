#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Files and folders of the kernel that are read now and then.

namespace velmora {

/// At most `limit` bytes from the start of the file; nothing if it cannot be opened or read.
std::optional<std::string> readSystemFile(const std::string& path, std::size_t limit = 65536);
/// The first word of an attribute file, without the newline behind it; nothing if it cannot be read.
std::optional<std::string> readSystemWord(const std::string& path);
/// The one whole number of an attribute file; nothing for any other text.
std::optional<std::uint64_t> readSystemNumber(const std::string& path);
/// The names in a folder, sorted, without "." and ".."; empty if it cannot be read.
std::vector<std::string> systemFolderEntries(const std::string& path);
/// The last component of what a symbolic link points at; nothing for another kind of file.
std::optional<std::string> systemLinkName(const std::string& path);
/// True for a text of one or more decimal digits.
bool isDigits(std::string_view text);

}  // namespace velmora
