#pragma once

#include "platform/qt/session/SessionBus.h"

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// Who may know the name of the desktop's icon theme.
enum class IconThemeSource : std::uint8_t {
    lxqtFile,   ///< `lxqt/lxqt.conf`.
    xSettings,  ///< What the desktop publishes on the X server.
    xfconf,     ///< Xfce's configuration service.
    portal,     ///< GNOME's setting, through the desktop's portal.
    gtkFile,    ///< `gtk-3.0/settings.ini`, where a desktop or the user left it.
};

/// The sources of a desktop, the closest first; `desktops` is the value of `XDG_CURRENT_DESKTOP`, a list with
/// colons. Empty on Plasma, whose theme the toolkit knows by itself.
std::vector<IconThemeSource> iconThemeSources(std::string_view desktops);

/// Finds out the desktop's icon theme, which the toolkit only guesses: it takes GNOME's for several desktops
/// and the empty one for the rest. Asks the sources one after the other and takes the first answer that will
/// do. Never waits for a service.
class IconThemeName final : public QObject {
    Q_OBJECT
public:
    struct Places {
        std::string desktops;       ///< `XDG_CURRENT_DESKTOP`.
        QStringList configuration;  ///< Folders with configuration files, the most important first.
        std::function<std::optional<std::string>(std::string_view name)> xSetting;

        static Places ofUser();
    };
    using WillDo = std::function<bool(const QString& name)>;
    /// The name; empty if no source has one that will do.
    using Found = std::function<void(const QString& name)>;

    /// `found` is called once, before the constructor returns where no service has to be asked.
    IconThemeName(SessionBus bus, Places places, WillDo willDo, Found found);
    ~IconThemeName() override;

private:
    void askNext();
    void take(const std::optional<QString>& name);
    std::optional<QString> valueInFiles(const QString& file, std::string_view group,
                                        std::string_view key) const;
    void ask(const QString& service, const QString& path, const QString& interface, const QString& method,
             const QString& first, const QString& second);

    SessionBus m_sessionBus;
    QString m_connectionName;
    std::optional<QDBusConnection> m_bus;  ///< Once a service is asked.
    Places m_places;
    WillDo m_willDo;
    Found m_found;
    std::vector<IconThemeSource> m_sources;  ///< Not asked yet.
};

/// Whether a theme of this name is installed where the toolkit looks for themes.
bool isIconThemeInstalled(const QString& name);
/// Makes it the theme of this program. Without a name the toolkit's guess stays, unless it is not installed:
/// then it is "hicolor", which has what applications bring along.
void useIconTheme(const QString& name);

}  // namespace velmora
