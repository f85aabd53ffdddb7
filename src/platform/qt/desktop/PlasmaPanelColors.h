#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace velmora {

/// Where Plasma's configuration lies.
struct PlasmaFolders {
    QString configuration;  ///< Holds `plasmarc` and `kdeglobals`.
    QStringList data;       ///< Those that hold `plasma/desktoptheme`, the most important first.

    static PlasmaFolders ofUser();
    QString plasmarc() const { return configuration + QLatin1String("/plasmarc"); }
    QString kdeglobals() const { return configuration + QLatin1String("/kdeglobals"); }
};

/// The lightness of Plasma's panels: that of the desktop theme if it has colours of its own, so that dark
/// panels among light windows are seen as such, else that of the colour scheme. Nothing if neither says.
std::optional<double> plasmaPanelLightness(const PlasmaFolders& folders);

}  // namespace velmora
