#pragma once

#include <string>
#include <vector>

namespace velmora {

/// How an application is started.
struct ApplicationLaunch {
    std::string id = {};  ///< The name that the desktop knows it by; empty for a program that has none.
    /// It is asked by its id on the session bus, which starts it if it has to. The command is for a session
    /// where that fails.
    bool isBusActivatable = false;
    std::vector<std::string> command = {};  ///< Program and arguments; may be empty if the bus starts it.
    std::string folder = {};                ///< Where it works; empty for the user's home.
    friend bool operator==(const ApplicationLaunch&, const ApplicationLaunch&) = default;
};

}  // namespace velmora
