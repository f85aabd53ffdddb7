#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// The command line of a desktop entry: the program, and its arguments. No files are opened with it, so the
/// codes that stand for files, the icon and the entry's own place are dropped, alone or within an argument;
/// `%c` becomes the entry's name and `%%` a percent sign.
///
/// `exec` is the value of the key `Exec` without its escapes. An argument stands between double quotes, where
/// a backslash takes the meaning from a quote, a backtick, a dollar sign and itself; what real entries do
/// besides, single quotes and a backslash outside of quotes, is read as a shell does. Nothing for a line that
/// names no program, leaves a quote open, or has a code that does not exist.
std::optional<std::vector<std::string>> execArguments(std::string_view exec, std::string_view name);

}  // namespace velmora
