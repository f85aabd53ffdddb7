#pragma once

#include <cstdint>
#include <optional>

// What the memory figures are made of. Each source is one bounded read on the main thread.

namespace velmora {

/// The kernel's page counters, in pages of `pageSize` bytes (stands for `vm_statistics64`).
struct MemoryCounters {
    std::uint64_t pageSize = 0;
    std::uint64_t wireCount = 0;
    std::uint64_t pageIns = 0;   ///< Cumulative.
    std::uint64_t pageOuts = 0;  ///< Cumulative.
    std::uint64_t purgeableCount = 0;
    std::uint64_t compressorPageCount = 0;
    std::uint64_t externalPageCount = 0;  ///< File-backed.
    std::uint64_t internalPageCount = 0;  ///< Anonymous.
    friend bool operator==(const MemoryCounters&, const MemoryCounters&) = default;
};

/// Bytes (stands for `xsw_usage`).
struct SwapUsage {
    std::uint64_t total = 0;
    std::uint64_t used = 0;
    friend bool operator==(const SwapUsage&, const SwapUsage&) = default;
};

class MemorySource {
public:
    virtual ~MemorySource() = default;
    /// Bytes of physical memory (`hw.memsize`); 0 on failure.
    virtual std::uint64_t physicalMemory() = 0;
    /// `host_statistics64` with `HOST_VM_INFO64`; the operations below may answer from this read, so it comes
    /// first in a sample.
    virtual std::optional<MemoryCounters> counters() = 0;
    /// Percentage of memory that is available (`kern.memorystatus_level`); nothing on failure.
    virtual std::optional<std::int32_t> availableLevel() = 0;
    /// `vm.swapusage`; nothing on failure.
    virtual std::optional<SwapUsage> swap() = 0;
};

}  // namespace velmora
