#pragma once

namespace velmora {

/// The main display (stands for `CGDisplayIsAsleep(CGMainDisplayID())`).
class Display {
public:
    virtual ~Display() = default;
    /// False where it cannot be known.
    virtual bool isAsleep() const = 0;
};

}  // namespace velmora
