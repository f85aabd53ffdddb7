#include "platform/PanelPlacement.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr int kEdgeGap = 4;

int heldWithin(int position, int length, int begin, int end) {
    return std::max(begin, std::min(position, end - length));
}

DesktopRect roomOf(const DesktopRect& available) {
    return {available.x + kEdgeGap, available.y + kEdgeGap, std::max(0, available.width - 2 * kEdgeGap),
            std::max(0, available.height - 2 * kEdgeGap)};
}

/// Twice the middle against twice the middle: no half points.
bool isInUpperHalf(const Anchor& anchor, const DesktopRect& screen) {
    return 2 * anchor.y + anchor.height < 2 * screen.y + screen.height;
}

}  // namespace

DesktopRect placePanel(const Anchor& anchor, PanelSize size, const DesktopRect& screen,
                       const DesktopRect& available) {
    const DesktopRect room = roomOf(available);
    DesktopRect panel;
    panel.width = std::min(size.width, room.width);
    panel.height = std::min(size.height, room.height);
    const int wantedY = isInUpperHalf(anchor, screen) ? anchor.y + anchor.height : anchor.y - panel.height;
    panel.x = heldWithin(anchor.x, panel.width, room.x, room.right());
    panel.y = heldWithin(wantedY, panel.height, room.y, room.bottom());
    return panel;
}

DesktopRect resizePanel(const DesktopRect& panel, int height, const Anchor& anchor, const DesktopRect& screen,
                        const DesktopRect& available) {
    const DesktopRect room = roomOf(available);
    const bool hangs = isInUpperHalf(anchor, screen);
    DesktopRect resized = panel;
    resized.height =
        std::clamp(height, 0, std::max(0, hangs ? room.bottom() - panel.y : panel.bottom() - room.y));
    if (!hangs) resized.y = panel.bottom() - resized.height;
    return resized;
}

}  // namespace velmora
