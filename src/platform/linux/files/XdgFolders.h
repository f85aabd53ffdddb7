#pragma once

#include <filesystem>
#include <vector>

// Where the desktop's rules (XDG Base Directory Specification) put a user's files. The environment is looked
// at on each call; a relative path in it counts as unset, as the rules say.

namespace velmora {

/// `$XDG_CONFIG_HOME`, by default `~/.config`.
std::filesystem::path xdgConfigHome();
/// `$XDG_DATA_HOME`, by default `~/.local/share`: what stands for Application Support.
std::filesystem::path xdgDataHome();
/// `$XDG_CONFIG_DIRS`, by default `/etc/xdg`; best first.
std::vector<std::filesystem::path> xdgConfigDirs();
/// `$XDG_DATA_DIRS`, by default `/usr/local/share` and `/usr/share`; best first.
std::vector<std::filesystem::path> xdgDataDirs();

/// The file of the program's stored values, `<configuration folder>/Velmora/defaults.db`.
std::filesystem::path defaultsFile();

}  // namespace velmora
