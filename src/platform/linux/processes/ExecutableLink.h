#pragma once

#include <optional>
#include <string>

namespace velmora {

/// The path that a process's `exe` link leads to. The kernel appends " (deleted)" once the file was replaced,
/// as every package upgrade does; that is taken off. Nothing if the link cannot be read.
std::optional<std::string> executableOfLink(const std::string& link);

}  // namespace velmora
