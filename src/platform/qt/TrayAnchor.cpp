#include "platform/qt/TrayAnchor.h"

#include <algorithm>

namespace velmora {
namespace {

/// Beyond the image an item has some padding; a point further right than both cannot be relative to the item.
constexpr int kItemPadding = 32;

bool isTrusted(const TrayClick& click, const HostProfile& host) {
    return !host.clickPointMayBeLocal || click.x > click.imageWidth + kItemPadding;
}

bool liesOn(const DesktopRect& screen, int x, int y) {
    return x >= screen.x && x < screen.right() && y >= screen.y && y < screen.bottom();
}

}  // namespace

Anchor trayAnchor(const TrayClick& click, const HostProfile& host, Session::WindowSystem windows,
                  const std::vector<DesktopRect>& screens, const DesktopRect& primaryAvailable) {
    if (windows == Session::WindowSystem::x11 || windows == Session::WindowSystem::native) {
        return {click.pointerX, click.pointerY, 1, 1};
    }
    const bool onScreen = std::ranges::any_of(
        screens, [&](const DesktopRect& screen) { return liesOn(screen, click.x, click.y); });
    if (onScreen && isTrusted(click, host)) return {click.x, click.y, 1, 1};
    return {primaryAvailable.right() - 1, primaryAvailable.y, 1, 1};
}

}  // namespace velmora
