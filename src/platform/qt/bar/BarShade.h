#pragma once

#include "platform/qt/bar/StatusBarChoice.h"
#include "platform/qt/session/Session.h"

#include <optional>

namespace velmora {

/// What is known of the desktop's colours. Lightness goes from 0 for black to 1 for white.
struct BarSurroundings {
    Session::Desktop desktop = Session::Desktop::other;
    std::optional<bool> prefersDark = {};    ///< The desktop's scheme, if it states one.
    double paletteLightness = 1;             ///< Of the toolkit's windows.
    std::optional<double> plasmaPanel = {};  ///< Lightness of Plasma's panels by its configuration.
    std::optional<bool> xfceDarkMode = {};   ///< Xfce's panels are told to be dark.
    std::optional<double> xfcePanel =
        {};  ///< Lightness of Xfce's first panel, if it has a colour of its own.
    std::optional<double> dockPixels = {};  ///< Mean lightness of what the panels on the screen show.
    friend bool operator==(const BarSurroundings&, const BarSurroundings&) = default;
};

/// Whether the desktop asks for a dark interface.
bool isSchemeDark(const BarSurroundings& surroundings);

/// Whether the bar behind the items is dark. Nothing recolours an image for the bar, so its ink depends on
/// it.
bool isBarDark(StatusBarPlace place, InkPreference ink, const BarSurroundings& surroundings);

}  // namespace velmora
