#pragma once

#include "base/Date.h"

namespace velmora {

/// The wall clock.
class Clock {
public:
    virtual ~Clock() = default;
    virtual Date now() const = 0;
};

}  // namespace velmora
