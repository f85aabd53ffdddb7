#pragma once

#include "platform/Display.h"

namespace velmora {

/// A display of which nothing is known.
class NullDisplay final : public Display {
public:
    bool isAsleep() const override { return false; }
};

}  // namespace velmora
