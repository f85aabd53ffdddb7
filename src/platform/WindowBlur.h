#pragma once

#include "base/Signal.h"

#include <cstdint>

namespace velmora {

/// The desktop's blur of what lies behind a window (stands for behind-window blending of
/// `NSVisualEffectView`). Main thread only.
class WindowBlur {
public:
    virtual ~WindowBlur() = default;

    /// A part of a window, in device pixels from its top left corner.
    struct Area {
        int x = 0;
        int y = 0;
        int width = 0;
        int height = 0;
        friend bool operator==(const Area&, const Area&) = default;
    };

    /// Whether the desktop blurs at present. A window that is not opaque looks wrong where it does not.
    virtual bool isAvailable() const = 0;
    /// Asks for the blur behind this part of a window, and no other; an empty area ends it.
    virtual void setArea(std::uintptr_t window, const Area& area) = 0;

    Signal<> changed;  ///< `isAvailable` answers anew.
};

}  // namespace velmora
