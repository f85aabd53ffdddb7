#pragma once

#include "platform/qt/session/Session.h"
#include "platform/qt/tray/HostProfile.h"
#include "platform/qt/window/ScreenPlace.h"

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
/// that can be trusted and lies on a screen, else where `cornerAnchor` says. The first screen is the primary
/// one; there may be none.
///
/// Some compositors do not tell X clients what their bars leave free, and draw the bars over every window.
/// Where nothing is left free at the point's edge of the screen, the anchor is as high as a bar.
Anchor trayAnchor(const TrayClick& click, const HostProfile& host, Session::WindowSystem windows,
                  const std::vector<ScreenPlace>& screens);

/// Where a panel opens if nobody knows where its item is: the top right corner of what is available on the
/// first screen.
Anchor cornerAnchor(Session::WindowSystem windows, const std::vector<ScreenPlace>& screens);

}  // namespace velmora
