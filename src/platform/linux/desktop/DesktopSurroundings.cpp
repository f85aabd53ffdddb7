#include "platform/linux/desktop/DesktopSurroundings.h"

#include "platform/linux/files/XdgFolders.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace velmora {
namespace {

std::string_view variable(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::vector<std::string> elements(std::string_view list) {
    std::vector<std::string> found;
    while (!list.empty()) {
        const auto length = std::min(list.find(':'), list.size());
        if (length > 0) found.emplace_back(list.substr(0, length));
        list.remove_prefix(std::min(length + 1, list.size()));
    }
    return found;
}

std::vector<std::string> withHome(const std::filesystem::path& home,
                                  const std::vector<std::filesystem::path>& others) {
    std::vector<std::string> folders = {home.native()};
    for (const auto& folder : others) folders.push_back(folder.native());
    return folders;
}

bool isExecutableFile(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && ::access(path.c_str(), X_OK) == 0;
}

}  // namespace

DesktopSurroundings DesktopSurroundings::ofThisProcess() {
    DesktopSurroundings surroundings;
    surroundings.dataFolders = withHome(xdgDataHome(), xdgDataDirs());
    surroundings.configurationFolders = withHome(xdgConfigHome(), xdgConfigDirs());
    surroundings.programFolders = elements(variable("PATH"));
    if (surroundings.programFolders.empty())
        surroundings.programFolders = {"/usr/local/bin", "/usr/bin", "/bin"};
    surroundings.desktops = elements(variable("XDG_CURRENT_DESKTOP"));
    return surroundings;
}

std::string DesktopSurroundings::located(std::string_view path) const {
    return path.starts_with('/') ? root.path(path.substr(1)) : std::string(path);
}

std::optional<std::string> DesktopSurroundings::program(std::string_view name) const {
    if (name.empty()) return std::nullopt;
    if (name.find('/') != std::string_view::npos) {
        std::string path = located(name);
        if (!name.starts_with('/') || !isExecutableFile(path)) return std::nullopt;
        return path;
    }
    for (const std::string& folder : programFolders) {
        std::string path = located(folder);
        path += '/';
        path += name;
        if (isExecutableFile(path)) return path;
    }
    return std::nullopt;
}

}  // namespace velmora
