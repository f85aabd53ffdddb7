#pragma once

#include "platform/MonotonicClock.h"

namespace velmora {

/// Seconds since the machine was started, with the time that it slept: what was read before a sleep is old
/// after it.
class BootTimeClock final : public MonotonicClock {
public:
    double seconds() const override;
};

}  // namespace velmora
