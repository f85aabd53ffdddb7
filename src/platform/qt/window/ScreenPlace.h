#pragma once

#include "platform/PanelPlacement.h"

#include <vector>

namespace velmora {

/// The screen that something opens on: all of it, and the part that panels and docks leave free.
struct ScreenPlace {
    DesktopRect screen;
    DesktopRect available;

    /// All screens, the primary one first.
    static std::vector<ScreenPlace> all();
    /// The screen under the middle of the anchor, else the primary one; empty where there is no screen.
    static ScreenPlace under(const Anchor& anchor);
};

}  // namespace velmora
