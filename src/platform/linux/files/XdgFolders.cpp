#include "platform/linux/files/XdgFolders.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace velmora {
namespace {

using std::filesystem::path;

path absolutePathIn(const char* variable) {
    const char* value = std::getenv(variable);
    if (value == nullptr || value[0] != '/') return {};
    return value;
}

/// Of a list with colons.
std::vector<path> absolutePathsIn(const char* variable) {
    const char* value = std::getenv(variable);
    std::string_view rest = value != nullptr ? value : "";
    std::vector<path> folders;
    while (!rest.empty()) {
        const auto length = std::min(rest.find(':'), rest.size());
        if (rest.starts_with('/')) folders.emplace_back(rest.substr(0, length));
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
    return folders;
}

path homeFolder() {
    if (path home = absolutePathIn("HOME"); !home.empty()) return home;
    // A service manager may start a program without an environment.
    const passwd* user = ::getpwuid(::getuid());
    return user != nullptr && user->pw_dir != nullptr ? path(user->pw_dir) : path("/");
}

}  // namespace

path xdgConfigHome() {
    const path folder = absolutePathIn("XDG_CONFIG_HOME");
    return folder.empty() ? homeFolder() / ".config" : folder;
}

path xdgDataHome() {
    const path folder = absolutePathIn("XDG_DATA_HOME");
    return folder.empty() ? homeFolder() / ".local" / "share" : folder;
}

std::vector<path> xdgConfigDirs() {
    std::vector<path> folders = absolutePathsIn("XDG_CONFIG_DIRS");
    if (folders.empty()) folders = {"/etc/xdg"};
    return folders;
}

std::vector<path> xdgDataDirs() {
    std::vector<path> folders = absolutePathsIn("XDG_DATA_DIRS");
    if (folders.empty()) folders = {"/usr/local/share", "/usr/share"};
    return folders;
}

path defaultsFile() {
    return xdgConfigHome() / "Velmora" / "defaults.db";
}

}  // namespace velmora
