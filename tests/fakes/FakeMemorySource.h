#pragma once

#include "platform/MemorySources.h"

#include <cstdint>
#include <optional>

namespace velmora {

class FakeMemorySource final : public MemorySource {
public:
    std::uint64_t physicalMemory() override {
        ++physicalMemoryReads;
        return physical;
    }
    std::optional<MemoryCounters> counters() override {
        ++counterReads;
        return pages;
    }
    std::optional<std::int32_t> availableLevel() override { return level; }
    std::optional<SwapUsage> swap() override { return swapUsage; }

    std::uint64_t physical = 0;
    std::optional<MemoryCounters> pages;
    std::optional<std::int32_t> level;
    std::optional<SwapUsage> swapUsage;
    int physicalMemoryReads = 0;
    int counterReads = 0;
};

}  // namespace velmora
