#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace velmora {

/// The folders that a text of user-dirs.dirs (xdg-user-dirs) names, by key, such as "DOCUMENTS", "DESKTOP"
/// and "DOWNLOAD". A folder that is switched off is the home folder itself. A malformed line is left out.
std::map<std::string, std::filesystem::path, std::less<>> parseUserDirs(std::string_view text,
                                                                        const std::filesystem::path& home);

}  // namespace velmora
