#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace velmora {

/// The contents of a file that somebody else chose the path of. Never waits, as a pipe at that path would
/// make a plain read do. Nothing for what is no regular file, has more bytes than the limit, or cannot be
/// read.
std::optional<std::string> readRegularFile(const std::string& path, std::size_t limit);

}  // namespace velmora
