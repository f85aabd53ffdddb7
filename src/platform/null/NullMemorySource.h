#pragma once

#include "platform/MemorySources.h"

namespace velmora {

/// A machine whose memory tells nothing.
class NullMemorySource final : public MemorySource {
public:
    std::uint64_t physicalMemory() override { return 0; }
    std::optional<MemoryCounters> counters() override { return std::nullopt; }
    std::optional<std::int32_t> availableLevel() override { return std::nullopt; }
    std::optional<SwapUsage> swap() override { return std::nullopt; }
};

}  // namespace velmora
