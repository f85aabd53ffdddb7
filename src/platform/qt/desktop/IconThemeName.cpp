#include "platform/qt/desktop/IconThemeName.h"

#include "platform/qt/desktop/KeyFileText.h"
#include "platform/qt/x11/XSettings.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace velmora {
namespace {

constexpr qint64 kMostBytes = qint64{1024} * 1024;

bool contains(std::string_view list, std::string_view name) {
    while (!list.empty()) {
        const std::string_view element = list.substr(0, list.find(':'));
        if (element == name) return true;
        list.remove_prefix(std::min(element.size() + 1, list.size()));
    }
    return false;
}

std::optional<QString> textOf(QVariant answer) {
    while (answer.metaType() == QMetaType::fromType<QDBusVariant>()) {
        answer = answer.value<QDBusVariant>().variant();
    }
    if (answer.metaType() != QMetaType::fromType<QString>()) return std::nullopt;
    return answer.toString();
}

/// Some write the value of such a file as a text of the C language.
QString unquoted(const QString& value) {
    const bool isQuoted = value.size() >= 2 && value.startsWith(u'"') && value.endsWith(u'"');
    return isQuoted ? value.mid(1, value.size() - 2) : value;
}

QByteArray contents(const QString& path) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return {};
    return file.read(kMostBytes);
}

}  // namespace

std::vector<IconThemeSource> iconThemeSources(std::string_view desktops) {
    if (contains(desktops, "KDE")) return {};
    if (contains(desktops, "LXQt"))
        return {IconThemeSource::lxqtFile, IconThemeSource::xSettings, IconThemeSource::gtkFile};
    if (contains(desktops, "XFCE"))
        return {IconThemeSource::xSettings, IconThemeSource::xfconf, IconThemeSource::gtkFile};
    return {IconThemeSource::xSettings, IconThemeSource::portal, IconThemeSource::gtkFile};
}

IconThemeName::Places IconThemeName::Places::ofUser() {
    return {qgetenv("XDG_CURRENT_DESKTOP").toStdString(),
            QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation), currentXSettingText};
}

IconThemeName::IconThemeName(SessionBus bus, Places places, WillDo willDo, Found found)
    : m_sessionBus(std::move(bus)),
      m_connectionName(SessionBus::newName()),
      m_places(std::move(places)),
      m_willDo(std::move(willDo)),
      m_found(std::move(found)),
      m_sources(iconThemeSources(m_places.desktops)) {
    askNext();
}

IconThemeName::~IconThemeName() {
    if (!m_bus) return;
    m_bus.reset();
    SessionBus::close(m_connectionName);
}

void IconThemeName::askNext() {
    if (m_sources.empty()) {
        m_found(QString());
        return;
    }
    const IconThemeSource source = m_sources.front();
    m_sources.erase(m_sources.begin());
    switch (source) {
        case IconThemeSource::lxqtFile:
            take(valueInFiles(QStringLiteral("lxqt/lxqt.conf"), "General", "icon_theme"));
            return;
        case IconThemeSource::xSettings: {
            const auto name = m_places.xSetting ? m_places.xSetting("Net/IconThemeName") : std::nullopt;
            take(name ? std::optional(QString::fromStdString(*name)) : std::nullopt);
            return;
        }
        case IconThemeSource::xfconf:
            ask(QStringLiteral("org.xfce.Xfconf"), QStringLiteral("/org/xfce/Xfconf"),
                QStringLiteral("org.xfce.Xfconf"), QStringLiteral("GetProperty"), QStringLiteral("xsettings"),
                QStringLiteral("/Net/IconThemeName"));
            return;
        case IconThemeSource::portal:
            ask(QStringLiteral("org.freedesktop.portal.Desktop"),
                QStringLiteral("/org/freedesktop/portal/desktop"),
                QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("Read"),
                QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("icon-theme"));
            return;
        case IconThemeSource::gtkFile:
            take(valueInFiles(QStringLiteral("gtk-3.0/settings.ini"), "Settings", "gtk-icon-theme-name"));
            return;
    }
}

void IconThemeName::take(const std::optional<QString>& name) {
    if (name && !name->isEmpty() && m_willDo(*name)) {
        m_found(*name);
    } else {
        askNext();
    }
}

std::optional<QString> IconThemeName::valueInFiles(const QString& file, std::string_view group,
                                                   std::string_view key) const {
    for (const QString& folder : m_places.configuration) {
        const QByteArray text = contents(folder + u'/' + file);
        const auto value =
            keyFileValue({text.constData(), static_cast<std::size_t>(text.size())}, group, key);
        if (value) return unquoted(QString::fromUtf8(value->data(), static_cast<qsizetype>(value->size())));
    }
    return std::nullopt;
}

void IconThemeName::ask(const QString& service, const QString& path, const QString& interface,
                        const QString& method, const QString& first, const QString& second) {
    if (!m_bus && m_sessionBus.isPresent()) m_bus = m_sessionBus.open(m_connectionName);
    if (!m_bus || !m_bus->isConnected()) {
        askNext();
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, method);
    call << first << second;
    auto* const pending = new QDBusPendingCallWatcher(m_bus->asyncCall(call), this);
    QObject::connect(pending, &QDBusPendingCallWatcher::finished, this,
                     [this](QDBusPendingCallWatcher* finished) {
                         finished->deleteLater();
                         const QDBusPendingReply<QDBusVariant> reply(*finished);
                         take(reply.isError() ? std::nullopt : textOf(reply.value().variant()));
                     });
}

bool isIconThemeInstalled(const QString& name) {
    if (name.isEmpty() || name.contains(u'/')) return false;
    const QStringList folders = QIcon::themeSearchPaths();
    return std::any_of(folders.begin(), folders.end(), [&name](const QString& folder) {
        return QFileInfo(folder + u'/' + name + QStringLiteral("/index.theme")).isFile();
    });
}

void useIconTheme(const QString& name) {
    const QString hicolor = QStringLiteral("hicolor");
    if (QIcon::fallbackThemeName().isEmpty()) QIcon::setFallbackThemeName(hicolor);
    const QString chosen = name.isEmpty() ? QIcon::themeName() : name;
    const QString used = isIconThemeInstalled(chosen) ? chosen : hicolor;
    if (used != QIcon::themeName()) QIcon::setThemeName(used);
}

}  // namespace velmora
