#pragma once

#include "platform/OrphanSource.h"
#include "platform/ProcessCounterSource.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

// What the process calls of the program's first home leave in a buffer. Pure functions: records of a wrong
// size give nothing, and no result, however wrong, leads out of its buffer.

namespace velmora::ProcessRecords {

using Bytes = std::span<const std::byte>;
using ProcessIds = std::span<const std::int32_t>;

/// Entries of the fixed buffer that some callers hand to `proc_listallpids`.
inline constexpr std::size_t kFixedBufferEntries = 8192;
/// Entries beyond the counted ones that a caller makes room for, as processes may start in between.
inline constexpr std::int32_t kSpareEntries = 16;

/// The process ids, with the result of `proc_listallpids` taken for a number of entries.
ProcessIds idsByCount(std::int32_t result, ProcessIds buffer);
/// The process ids, with the result taken for a number of bytes and divided by four, rounded down. This
/// reading and the one above belong to different callers and must stay apart.
ProcessIds idsByByteCount(std::int32_t result, ProcessIds buffer);

/// The text of `proc_name` up to the first zero byte, or all of it; "?" if it is empty.
std::string name(Bytes buffer);

/// The fields that are used of `rusage_info_v6`.
struct Rusage {
    std::uint64_t footprint = 0;  ///< `ri_phys_footprint`
    ProcessCounters counters;
    friend bool operator==(const Rusage&, const Rusage&) = default;
};
std::optional<Rusage> rusage(Bytes record);

/// Size of `proc_bsdinfo`, which is what `proc_pidinfo` must return.
inline constexpr std::int32_t kBsdInfoSize = 136;
/// Parent and user of a `proc_bsdinfo`; nothing if `returned` is another size.
std::optional<ProcessParentage> parentage(std::int32_t returned, Bytes record);

}  // namespace velmora::ProcessRecords
