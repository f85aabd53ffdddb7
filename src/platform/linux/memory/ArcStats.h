#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace velmora {

/// Bytes of the ZFS cache that the kernel would give back under pressure, from the text of
/// /proc/spl/kstat/zfs/arcstats: its size less the size below which it does not shrink, at least 0. Nothing
/// if either line is missing or malformed.
std::optional<std::uint64_t> parseReclaimableArc(std::string_view text);

}  // namespace velmora
