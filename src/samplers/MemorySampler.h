#pragma once

#include "samplers/Samplers.h"

#include <cstdint>
#include <optional>

namespace velmora {

class MemorySource;

/// Turns the kernel's page counters into byte figures. `free` is what `used` leaves of the physical memory,
/// not the kernel's count of free pages, and `cached` lies inside it.
class MemorySampler final : public MemorySampling {
public:
    /// Reads the size of the physical memory, once.
    explicit MemorySampler(MemorySource& source);

    /// After a failed read everything but `total` is 0, and the next good one takes its page rates from the
    /// last good one.
    void sample(double interval, MemoryStats& stats) override;

private:
    MemorySource& m_source;
    const std::uint64_t m_total;
    std::optional<std::uint64_t> m_previousPageIns;  ///< Bytes at the last good read; so too the next.
    std::optional<std::uint64_t> m_previousPageOuts;
};

}  // namespace velmora
