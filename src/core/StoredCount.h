#pragma once

#include <cstdint>
#include <string_view>

namespace velmora {

class Defaults;

/// A stored byte count; 0 for a missing, negative or foreign value. A number with a fraction is cut to a
/// whole.
std::uint64_t storedCount(const Defaults& defaults, std::string_view key);

}  // namespace velmora
