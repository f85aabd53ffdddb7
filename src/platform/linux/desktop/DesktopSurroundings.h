#pragma once

#include "platform/linux/files/SystemRoot.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// Where a desktop keeps what is known of its applications. The folders are named as the running system names
/// them and looked for below the root.
struct DesktopSurroundings {
    SystemRoot root = SystemRoot();
    std::vector<std::string> dataFolders = {};           ///< Hold `applications`; best first.
    std::vector<std::string> configurationFolders = {};  ///< Best first.
    std::vector<std::string> programFolders = {};        ///< Those of `PATH`.
    std::vector<std::string> desktops = {};              ///< `XDG_CURRENT_DESKTOP`, the closest first.

    /// By this process's environment.
    static DesktopSurroundings ofThisProcess();

    /// The path of a folder or a file below the root; what is not absolute is taken as it is.
    std::string located(std::string_view path) const;
    /// The executable file that a program's name or absolute path stands for, below the root; nothing without
    /// one.
    std::optional<std::string> program(std::string_view name) const;
};

}  // namespace velmora
