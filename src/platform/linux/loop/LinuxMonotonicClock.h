#pragma once

#include "platform/MonotonicClock.h"

#include <chrono>

namespace velmora {

/// Seconds since the machine started, without the time it slept.
class LinuxMonotonicClock final : public MonotonicClock {
public:
    double seconds() const override {
        return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
    }
};

}  // namespace velmora
