#include "platform/qt/desktop/PlasmaPanelColors.h"

#include "platform/qt/desktop/KeyFileText.h"

#include <QFile>
#include <QStandardPaths>

#include <string_view>

namespace velmora {
namespace {

/// Configuration files are small; what is larger is something else.
constexpr qint64 kMostBytes = qint64{1024} * 1024;

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(kMostBytes) : QByteArray();
}

std::optional<std::string_view> valueIn(const QByteArray& text, std::string_view group,
                                        std::string_view key) {
    return keyFileValue({text.constData(), static_cast<std::size_t>(text.size())}, group, key);
}

std::optional<double> windowLightness(const QByteArray& text) {
    const auto color = valueIn(text, "Colors:Window", "BackgroundNormal");
    return color ? lightnessOfColorText(*color) : std::nullopt;
}

QString themeName(const QByteArray& plasmarc) {
    const auto name = valueIn(plasmarc, "Theme", "name");
    if (!name || name->empty()) return QStringLiteral("default");
    return QString::fromUtf8(name->data(), static_cast<qsizetype>(name->size()));
}

}  // namespace

PlasmaFolders PlasmaFolders::ofUser() {
    return {QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
            QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)};
}

std::optional<double> plasmaPanelLightness(const PlasmaFolders& folders) {
    const QString theme = themeName(contents(folders.plasmarc()));
    for (const QString& folder : folders.data) {
        const QString themeFolder = folder + QLatin1String("/plasma/desktoptheme/") + theme;
        if (!QFile::exists(themeFolder)) continue;
        if (const auto own = windowLightness(contents(themeFolder + QLatin1String("/colors")))) return own;
        break;
    }
    return windowLightness(contents(folders.kdeglobals()));
}

}  // namespace velmora
