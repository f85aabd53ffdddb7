#include "platform/qt/session/SessionBus.h"

#include <QFileInfo>

namespace velmora {

bool SessionBus::isPresent() const {
    if (!m_address.isEmpty() || !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")) return true;
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !runtime.isEmpty() && QFileInfo::exists(runtime + QLatin1String("/bus"));
}

QDBusConnection SessionBus::open(const QString& name) const {
    return m_address.isEmpty() ? QDBusConnection::connectToBus(QDBusConnection::SessionBus, name)
                               : QDBusConnection::connectToBus(m_address, name);
}

void SessionBus::close(const QString& name) {
    QDBusConnection::disconnectFromBus(name);
}

QString SessionBus::newName() {
    static int count = 0;
    return QStringLiteral("velmora-%1").arg(++count);
}

}  // namespace velmora
