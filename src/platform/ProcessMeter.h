#pragma once

#include <cstdint>
#include <string>

namespace velmora {

/// The program's own weight and the machine that it runs on (stands for `getrusage`, `task_info` with
/// `MACH_TASK_BASIC_INFO`, and `sysctlbyname` of `hw.model`).
class ProcessMeter {
public:
    virtual ~ProcessMeter() = default;
    /// Processor seconds that this process has used, user and system time together; 0 on failure.
    virtual double cpuTimeSeconds() const = 0;
    /// Bytes of this process in physical memory; 0 on failure.
    virtual std::uint64_t residentBytes() const = 0;
    /// Maker and name of the machine; empty if unknown.
    virtual std::string hardwareModel() const = 0;
};

}  // namespace velmora
