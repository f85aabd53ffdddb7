#pragma once

#include "platform/ProcessMeter.h"

namespace velmora {

/// A system that does not weigh its processes.
class NullProcessMeter final : public ProcessMeter {
public:
    double cpuTimeSeconds() const override { return 0; }
    std::uint64_t residentBytes() const override { return 0; }
    std::string hardwareModel() const override { return {}; }
};

}  // namespace velmora
