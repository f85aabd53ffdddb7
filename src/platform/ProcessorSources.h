#pragma once

#include "model/StatsSnapshot.h"

#include <cstdint>
#include <optional>
#include <vector>

// What the processor figures are made of. Each source is one bounded read on the main thread.

namespace velmora {

/// Cumulative ticks of one logical core; the counters wrap at 32 bits.
struct CoreTicks {
    std::uint32_t user = 0;
    std::uint32_t system = 0;
    std::uint32_t idle = 0;
    std::uint32_t nice = 0;
    friend bool operator==(const CoreTicks&, const CoreTicks&) = default;
};

/// Stands for `host_processor_info` with `PROCESSOR_CPU_LOAD_INFO`.
class ProcessorTicksSource {
public:
    virtual ~ProcessorTicksSource() = default;
    /// Replaces `cores`, reusing its storage, with one entry per logical core, efficiency cores first. False
    /// if the ticks cannot be read; `cores` is then unspecified.
    virtual bool read(std::vector<CoreTicks>& cores) = 0;
};

/// Stands for `getloadavg`.
class LoadAverageSource {
public:
    virtual ~LoadAverageSource() = default;
    /// Zeros on failure.
    virtual LoadAverage read() = 0;
};

/// Stands for `sysctl` `KERN_BOOTTIME`.
class BootTimeSource {
public:
    virtual ~BootTimeSource() = default;
    /// Whole seconds since 1970; nothing on failure.
    virtual std::optional<std::int64_t> bootTimeSeconds() = 0;
};

struct TaskThreadCounts {
    int tasks = 0;
    int threads = 0;
    friend bool operator==(const TaskThreadCounts&, const TaskThreadCounts&) = default;
};

/// Stands for `processor_set_statistics` with `PROCESSOR_SET_LOAD_INFO`.
class TaskCountSource {
public:
    virtual ~TaskCountSource() = default;
    virtual std::optional<TaskThreadCounts> read() = 0;
};

/// Stands for `sysctlbyname` of `hw.nperflevels` and `hw.perflevelN.logicalcpu`. Level 0 is the fastest.
class PerformanceLevelSource {
public:
    virtual ~PerformanceLevelSource() = default;
    virtual std::optional<std::int32_t> levelCount() = 0;
    virtual std::optional<std::int32_t> logicalCores(std::int32_t level) = 0;
};

/// Stands for the "Device Utilization %" of the registry's "IOAccelerator" entries.
class AcceleratorSource {
public:
    virtual ~AcceleratorSource() = default;
    /// Replaces `percents` with one whole percentage per accelerator that publishes one. False if the
    /// accelerators cannot be listed.
    virtual bool utilizations(std::vector<int>& percents) = 0;
};

}  // namespace velmora
