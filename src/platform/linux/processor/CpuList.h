#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace velmora {

/// The CPU numbers of a list as the kernel writes it, "0-3,8", ascending and each once; empty for an empty
/// list. Nothing for any other text, and for numbers that no kernel has.
std::optional<std::vector<int>> parseCpuList(std::string_view text);

}  // namespace velmora
