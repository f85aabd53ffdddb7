#pragma once

#include "platform/MemorySources.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

// The raw records in which the program's first home hands out memory figures: bytes in the machine's order.

namespace velmora::MemoryRecords {

/// Size of `vm_statistics64` in its newest layout, 62 words.
inline constexpr std::size_t kStatisticsSize = 248;
/// Size of `xsw_usage`.
inline constexpr std::size_t kSwapUsageSize = 32;

/// `vm_statistics64`, of which only seven counters are used; all of them lie in the part that every layout
/// has. Nothing for a record that ends before them.
std::optional<MemoryCounters> decodeStatistics(std::span<const std::byte> record, std::uint64_t pageSize);

/// `xsw_usage`; nothing for fewer than 32 bytes.
std::optional<SwapUsage> decodeSwapUsage(std::span<const std::byte> record);

}  // namespace velmora::MemoryRecords
