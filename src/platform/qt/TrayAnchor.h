#pragma once

#include "platform/PanelPlacement.h"
#include "platform/qt/HostProfile.h"
#include "platform/qt/Session.h"

#include <optional>
#include <vector>

namespace velmora {

/// What is known when a host reports a click.
struct TrayClick {
    int x = 0;  ///< As the host said; hosts differ in unit and origin.
    int y = 0;
    int pointerX = 0;  ///< Where the toolkit believes the pointer to be.
    int pointerY = 0;
    int imageWidth = 0;  ///< Of the item that was clicked.
};

/// Where a panel opens after a click in a tray: at the pointer where it is known, else at the host's point if
/// that can be trusted and lies on a screen, else in the top right corner of what is available on the primary
/// screen.
Anchor trayAnchor(const TrayClick& click, const HostProfile& host, Session::WindowSystem windows,
                  const std::vector<DesktopRect>& screens, const DesktopRect& primaryAvailable);

}  // namespace velmora
