#pragma once

#include "platform/ProcessorSources.h"

// A machine whose processors tell nothing.

namespace velmora {

class NullProcessorTicksSource final : public ProcessorTicksSource {
public:
    bool read(std::vector<CoreTicks>&) override { return false; }
};

class NullLoadAverageSource final : public LoadAverageSource {
public:
    LoadAverage read() override { return {}; }
};

class NullBootTimeSource final : public BootTimeSource {
public:
    std::optional<std::int64_t> bootTimeSeconds() override { return std::nullopt; }
};

class NullTaskCountSource final : public TaskCountSource {
public:
    std::optional<TaskThreadCounts> read() override { return std::nullopt; }
};

class NullPerformanceLevelSource final : public PerformanceLevelSource {
public:
    std::optional<std::int32_t> levelCount() override { return std::nullopt; }
    std::optional<std::int32_t> logicalCores(std::int32_t) override { return std::nullopt; }
};

class NullAcceleratorSource final : public AcceleratorSource {
public:
    bool utilizations(std::vector<int>&) override { return false; }
};

}  // namespace velmora
