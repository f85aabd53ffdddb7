#pragma once

#include "platform/Display.h"

namespace velmora {

class FakeDisplay final : public Display {
public:
    bool isAsleep() const override { return asleep; }

    bool asleep = false;
};

}  // namespace velmora
