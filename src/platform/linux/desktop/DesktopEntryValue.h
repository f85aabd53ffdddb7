#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What the values of a desktop entry mean.
namespace velmora::DesktopEntryValue {

/// A text without its escapes: `\s`, `\n`, `\t`, `\r` and `\\`. Another letter behind a backslash keeps it:
/// many a command line counts on that.
std::string text(std::string_view value);
/// The elements of a list, between semicolons; `\;` is a semicolon within one. Empty elements are left out.
std::vector<std::string> list(std::string_view value);
/// "true", or "1" as old entries write it.
bool isTrue(std::string_view value);

}  // namespace velmora::DesktopEntryValue
