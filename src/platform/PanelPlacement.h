#pragma once

#include "platform/StatusBar.h"

namespace velmora {

/// A rectangle of the desktop in logical coordinates; the right and bottom edges are outside of it.
struct DesktopRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    int right() const { return x + width; }
    int bottom() const { return y + height; }
    friend bool operator==(const DesktopRect&, const DesktopRect&) = default;
};

struct PanelSize {
    int width = 0;
    int height = 0;
};

/// Where a panel or menu of the given size opens. It hangs below the anchor if that lies in the upper half of
/// the screen, else it stands above it; its left edge is the anchor's. It keeps 4 points from every edge of
/// the available part of the screen, which moves it if need be and cuts what is larger: the panel scrolls.
DesktopRect placePanel(const Anchor& anchor, PanelSize size, const DesktopRect& screen,
                       const DesktopRect& available);

/// Where an open panel goes when its content has become `height` high. The edge at the anchor's side stays
/// where it is; the other one keeps 4 points from the edge of the available part, and the rest scrolls.
DesktopRect resizePanel(const DesktopRect& panel, int height, const Anchor& anchor, const DesktopRect& screen,
                        const DesktopRect& available);

}  // namespace velmora
