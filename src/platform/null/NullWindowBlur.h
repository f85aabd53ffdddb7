#pragma once

#include "platform/WindowBlur.h"

namespace velmora {

/// A desktop that blurs nothing.
class NullWindowBlur final : public WindowBlur {
public:
    bool isAvailable() const override { return false; }
    void setArea(std::uintptr_t, const Area&) override {}
};

}  // namespace velmora
