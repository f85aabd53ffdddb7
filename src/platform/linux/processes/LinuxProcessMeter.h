#pragma once

#include "platform/ProcessMeter.h"
#include "platform/linux/files/SystemRoot.h"

#include <string>
#include <utility>

namespace velmora {

/// getrusage(2), /proc/self/statm and the firmware's description of the machine.
class LinuxProcessMeter final : public ProcessMeter {
public:
    explicit LinuxProcessMeter(SystemRoot root = SystemRoot()) : m_root(std::move(root)) {}

    double cpuTimeSeconds() const override;
    std::uint64_t residentBytes() const override;
    std::string hardwareModel() const override;

private:
    SystemRoot m_root;
};

/// Maker and product of the machine: from the firmware's tables (the board's name where the product's was
/// never filled in), else from the device tree; empty if neither is there, as in most virtual machines.
std::string hardwareModel(const SystemRoot& root);

}  // namespace velmora
