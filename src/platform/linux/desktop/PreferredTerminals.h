#pragma once

#include "platform/linux/desktop/DesktopSurroundings.h"

#include <string>
#include <string_view>
#include <vector>

// The user, the administrator or the distribution may say which terminal is preferred: in files
// `xdg-terminals.list`, which the program xdg-terminal-exec goes by.

namespace velmora {

/// The ids in the text of such a file, best first and without ".desktop". Comments, and what such a file says
/// besides, are left out.
std::vector<std::string> parseTerminalList(std::string_view text);

/// The ids of all such files, best first.
std::vector<std::string> preferredTerminals(const DesktopSurroundings& surroundings);

}  // namespace velmora
