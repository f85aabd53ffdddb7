#pragma once

#include "platform/Clock.h"

namespace velmora {

/// The wall clock of the system, with the precision that a double leaves it: better than a microsecond.
class SystemClock final : public Clock {
public:
    Date now() const override;
};

}  // namespace velmora
