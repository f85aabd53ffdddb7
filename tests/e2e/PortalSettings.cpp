#include "PortalSettings.h"

namespace velmora {
namespace {

constexpr auto kPath = "/org/freedesktop/portal/desktop";

}  // namespace

PortalSettings::PortalSettings(const QString& busAddress, Preference preference)
    : m_preference(preference),
      m_connectionName("portal-" + busAddress),
      m_bus(QDBusConnection::connectToBus(busAddress, m_connectionName)) {
    m_bus.registerObject(kPath, this, QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
    m_bus.registerService("org.freedesktop.portal.Desktop");
}

PortalSettings::~PortalSettings() {
    m_bus.unregisterObject(kPath);
    m_bus = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(m_connectionName);
}

void PortalSettings::set(Preference preference) {
    m_preference = preference;
    Q_EMIT SettingChanged("org.freedesktop.appearance", "color-scheme",
                          QDBusVariant(static_cast<uint>(preference)));
}

QDBusVariant PortalSettings::Read(const QString&, const QString&) const {
    return QDBusVariant(QVariant::fromValue(QDBusVariant(static_cast<uint>(m_preference))));
}

}  // namespace velmora
