#include "platform/qt/tray/TrayAnchor.h"

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

/// What a bar at the upper or lower edge may be high if nobody says; few are higher.
constexpr int kUnknownBar = 40;

/// A point in a bar whose height nobody says, with that height.
Anchor besideBar(int x, int y, Session::WindowSystem windows, const ScreenPlace& place) {
    if (windows != Session::WindowSystem::xwayland) return {x, y, 1, 1};
    const auto& [screen, available] = place;
    const int below = std::max(y + 1, screen.y + kUnknownBar);
    const int above = std::min(y, screen.bottom() - kUnknownBar);
    const bool isAtTop = y < screen.y + kUnknownBar && available.y == screen.y;
    const bool isAtBottom = y >= screen.bottom() - kUnknownBar && available.bottom() == screen.bottom();
    if (isAtTop) return {x, y, 1, below - y};
    if (isAtBottom) return {x, above, 1, y + 1 - above};
    return {x, y, 1, 1};
}

}  // namespace

Anchor trayAnchor(const TrayClick& click, const HostProfile& host, Session::WindowSystem windows,
                  const std::vector<ScreenPlace>& screens) {
    if (windows == Session::WindowSystem::x11 || windows == Session::WindowSystem::native) {
        return {click.pointerX, click.pointerY, 1, 1};
    }
    const auto clicked = std::ranges::find_if(
        screens, [&](const ScreenPlace& place) { return liesOn(place.screen, click.x, click.y); });
    if (clicked != screens.end() && isTrusted(click, host)) {
        return besideBar(click.x, click.y, windows, *clicked);
    }
    return cornerAnchor(windows, screens);
}

Anchor cornerAnchor(Session::WindowSystem windows, const std::vector<ScreenPlace>& screens) {
    if (screens.empty()) return {};
    const ScreenPlace& place = screens.front();
    return besideBar(place.available.right() - 1, place.available.y, windows, place);
}

}  // namespace velmora
