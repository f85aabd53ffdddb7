#include "samplers/MemoryRecords.h"

#include <cstring>

namespace velmora::MemoryRecords {
namespace {

// Offsets of the used counters in `vm_statistics64`: page numbers are 32-bit, event counts 64-bit.
constexpr std::size_t kWireCount = 12;
constexpr std::size_t kPageIns = 32;
constexpr std::size_t kPageOuts = 40;
constexpr std::size_t kPurgeableCount = 88;
constexpr std::size_t kCompressorPageCount = 128;
constexpr std::size_t kExternalPageCount = 136;
constexpr std::size_t kInternalPageCount = 140;
constexpr std::size_t kEndOfUsedCounters = 144;

// Offsets in `xsw_usage`; between the two lies what is available.
constexpr std::size_t kSwapTotal = 0;
constexpr std::size_t kSwapUsed = 16;

template <typename Number>
std::uint64_t numberAt(std::span<const std::byte> record, std::size_t offset) {
    Number number{};
    std::memcpy(&number, record.subspan(offset, sizeof number).data(), sizeof number);
    return number;
}

}  // namespace

std::optional<MemoryCounters> decodeStatistics(std::span<const std::byte> record, std::uint64_t pageSize) {
    if (record.size() < kEndOfUsedCounters) return std::nullopt;
    return MemoryCounters{
        .pageSize = pageSize,
        .wireCount = numberAt<std::uint32_t>(record, kWireCount),
        .pageIns = numberAt<std::uint64_t>(record, kPageIns),
        .pageOuts = numberAt<std::uint64_t>(record, kPageOuts),
        .purgeableCount = numberAt<std::uint32_t>(record, kPurgeableCount),
        .compressorPageCount = numberAt<std::uint32_t>(record, kCompressorPageCount),
        .externalPageCount = numberAt<std::uint32_t>(record, kExternalPageCount),
        .internalPageCount = numberAt<std::uint32_t>(record, kInternalPageCount),
    };
}

std::optional<SwapUsage> decodeSwapUsage(std::span<const std::byte> record) {
    if (record.size() < kSwapUsageSize) return std::nullopt;
    return SwapUsage{.total = numberAt<std::uint64_t>(record, kSwapTotal),
                     .used = numberAt<std::uint64_t>(record, kSwapUsed)};
}

}  // namespace velmora::MemoryRecords
