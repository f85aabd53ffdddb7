#include "platform/qt/services/FakeDesktopServices.h"

#include "platform/qt/session/PrivateBus.h"

#include <QDBusError>

namespace velmora {
namespace {

const QString kPortalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kXfconfPath = QStringLiteral("/org/xfce/Xfconf");
const QString kGroup = QStringLiteral("org.freedesktop.appearance");
const QString kKey = QStringLiteral("color-scheme");
const QString kPanelChannel = QStringLiteral("xfce4-panel");

}  // namespace

FakePortal::FakePortal(const SessionBus& bus, uint scheme)
    : m_scheme(scheme), m_connectionName(SessionBus::newName()), m_connection(bus.open(m_connectionName)) {
    m_connection->registerObject(kPortalPath, this, QDBusConnection::ExportAllContents);
    m_connection->registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    closeWithObject(*this, m_connectionName);
}

FakePortal::~FakePortal() {
    m_connection->unregisterObject(kPortalPath);
}

void FakePortal::setScheme(uint scheme) {
    m_scheme = scheme;
    emit SettingChanged(kGroup, kKey, QDBusVariant(scheme));
}

void FakePortal::announce(const QString& group, const QString& key, uint value) {
    emit SettingChanged(group, key, QDBusVariant(value));
}

QDBusVariant FakePortal::Read(const QString& group, const QString& key) {
    const uint scheme = group == kGroup && key == kKey ? m_scheme : 0;
    return QDBusVariant(QVariant::fromValue(QDBusVariant(scheme)));
}

FakeXfconf::FakeXfconf(const SessionBus& bus, QVariantMap properties)
    : m_properties(std::move(properties)),
      m_connectionName(SessionBus::newName()),
      m_connection(bus.open(m_connectionName)) {
    m_connection->registerObject(kXfconfPath, this, QDBusConnection::ExportAllContents);
    m_connection->registerService(QStringLiteral("org.xfce.Xfconf"));
    closeWithObject(*this, m_connectionName);
}

FakeXfconf::~FakeXfconf() {
    m_connection->unregisterObject(kXfconfPath);
}

void FakeXfconf::set(const QString& property, const QVariant& value) {
    m_properties[property] = value;
    emit PropertyChanged(kPanelChannel, property, QDBusVariant(value));
}

QDBusVariant FakeXfconf::GetProperty(const QString& channel, const QString& property) {
    if (channel != kPanelChannel || !m_properties.contains(property)) {
        sendErrorReply(QStringLiteral("org.xfce.Xfconf.Error.PropertyNotFound"), property);
        return QDBusVariant(0);
    }
    return QDBusVariant(m_properties.value(property));
}

}  // namespace velmora
