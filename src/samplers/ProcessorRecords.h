#pragma once

#include "platform/ProcessorSources.h"

#include <nlohmann/json_fwd.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

// The raw records in which the program's first home hands out processor figures. They are plain words and
// bytes in the machine's order, so they are decoded, and tested, everywhere.

namespace velmora::ProcessorRecords {

/// `PROCESSOR_CPU_LOAD_INFO`: four words per core in the order user, system, idle, nice. Replaces `cores`,
/// reusing its storage, with `coreCount` entries; false, with `cores` empty, if there are fewer words.
bool decodeCoreTicks(std::span<const std::uint32_t> words, std::size_t coreCount,
                     std::vector<CoreTicks>& cores);

/// `KERN_BOOTTIME`: a `timeval` of 16 bytes, of which only the 64-bit seconds count; nothing for fewer bytes.
std::optional<std::int64_t> decodeBootTime(std::span<const std::byte> timeval);

/// `PROCESSOR_SET_LOAD_INFO`: task count, thread count, load average, mach factor, of which the first two
/// count; nothing for fewer than four words.
std::optional<TaskThreadCounts> decodeLoadInfo(std::span<const std::int32_t> words);

/// "hw.perflevel1.logicalcpu" for level 1.
std::string performanceLevelName(std::int32_t level);

/// The "Device Utilization %" in the "PerformanceStatistics" of an accelerator's property dictionary; nothing
/// if either is missing or of another type.
std::optional<int> acceleratorUtilization(const nlohmann::json& properties);

}  // namespace velmora::ProcessorRecords
