#include "platform/qt/bar/BarShade.h"

namespace velmora {
namespace {

constexpr double kMiddle = 0.5;

bool isDark(const std::optional<double>& lightness, bool otherwise) {
    return lightness ? *lightness < kMiddle : otherwise;
}

bool isTrayDark(const BarSurroundings& surroundings) {
    const bool scheme = isSchemeDark(surroundings);
    switch (surroundings.desktop) {
        case Session::Desktop::gnome:
            return true;  // Its bar is dark whatever the scheme is.
        case Session::Desktop::plasma:
            return isDark(surroundings.plasmaPanel, scheme);
        case Session::Desktop::xfce:
            if (surroundings.xfceDarkMode.value_or(false)) return true;
            return isDark(surroundings.xfcePanel, isDark(surroundings.dockPixels, scheme));
        case Session::Desktop::other:
            return isDark(surroundings.dockPixels, scheme);
    }
    return scheme;
}

}  // namespace

bool isSchemeDark(const BarSurroundings& surroundings) {
    return surroundings.prefersDark.value_or(surroundings.paletteLightness < kMiddle);
}

bool isBarDark(StatusBarPlace place, InkPreference ink, const BarSurroundings& surroundings) {
    if (place == StatusBarPlace::topBar) return true;
    switch (ink) {
        case InkPreference::light:
            return true;
        case InkPreference::dark:
            return false;
        case InkPreference::automatic:
            break;
    }
    return place == StatusBarPlace::tray ? isTrayDark(surroundings) : isSchemeDark(surroundings);
}

}  // namespace velmora
