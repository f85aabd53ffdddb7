#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace velmora {

/// Bytes of memory that a compressed block device takes, from its `mm_stat` attribute: the third number,
/// `mem_used_total`. Nothing for malformed text.
std::optional<std::uint64_t> parseZramMemory(std::string_view text);

}  // namespace velmora
