#pragma once

#include "platform/ProcessorSources.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

// Sources of the processor figures with settable answers.

namespace velmora {

class FakeProcessorTicksSource final : public ProcessorTicksSource {
public:
    bool read(std::vector<CoreTicks>& into) override {
        ++readCount;
        if (fails) return false;
        into = cores;
        return true;
    }

    std::vector<CoreTicks> cores;
    bool fails = false;
    int readCount = 0;
};

class FakeLoadAverageSource final : public LoadAverageSource {
public:
    LoadAverage read() override { return load; }

    LoadAverage load;
};

class FakeBootTimeSource final : public BootTimeSource {
public:
    std::optional<std::int64_t> bootTimeSeconds() override { return seconds; }

    std::optional<std::int64_t> seconds;
};

class FakeTaskCountSource final : public TaskCountSource {
public:
    std::optional<TaskThreadCounts> read() override { return counts; }

    std::optional<TaskThreadCounts> counts;
};

class FakePerformanceLevelSource final : public PerformanceLevelSource {
public:
    std::optional<std::int32_t> levelCount() override {
        ++levelCountReads;
        return levels;
    }
    std::optional<std::int32_t> logicalCores(std::int32_t level) override {
        if (level < 0 || static_cast<std::size_t>(level) >= coresPerLevel.size()) return std::nullopt;
        return coresPerLevel[static_cast<std::size_t>(level)];
    }

    std::optional<std::int32_t> levels;
    std::vector<std::optional<std::int32_t>> coresPerLevel;
    int levelCountReads = 0;
};

class FakeAcceleratorSource final : public AcceleratorSource {
public:
    bool utilizations(std::vector<int>& into) override {
        ++readCount;
        if (fails) return false;
        into = percents;
        return true;
    }

    std::vector<int> percents;
    bool fails = false;
    int readCount = 0;
};

}  // namespace velmora
