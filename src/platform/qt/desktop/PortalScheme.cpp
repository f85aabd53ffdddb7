#include "platform/qt/desktop/PortalScheme.h"

#include "platform/qt/session/BusTypes.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace velmora {
namespace {

const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString kGroup = QStringLiteral("org.freedesktop.appearance");
const QString kKey = QStringLiteral("color-scheme");

}  // namespace

PortalScheme::PortalScheme(const QDBusConnection& bus) {
    QDBusConnection connection = bus;
    if (!connection.isConnected()) return;
    registerBusTypes();
    // Without the service's name: with it the library would wait for the bus to tell who owns it.
    connection.connect({}, kPath, kInterface, QStringLiteral("SettingChanged"), this,
                       SLOT(settingChanged(QString, QString, QDBusVariant)));
    // The portal's first version has no other way to read one value.
    QDBusMessage call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"),
                                                       kPath, kInterface, QStringLiteral("Read"));
    call << kGroup << kKey;
    auto* const pending = new QDBusPendingCallWatcher(connection.asyncCall(call), this);
    QObject::connect(pending, &QDBusPendingCallWatcher::finished, this,
                     [this](QDBusPendingCallWatcher* finished) {
                         finished->deleteLater();
                         const QDBusPendingReply<QDBusVariant> reply(*finished);
                         if (!reply.isError()) take(darkFromAnswer(QVariant::fromValue(reply.value())));
                     });
}

std::optional<bool> PortalScheme::darkFromAnswer(QVariant answer) {
    while (answer.metaType() == QMetaType::fromType<QDBusVariant>()) {
        answer = answer.value<QDBusVariant>().variant();
    }
    bool isNumber = false;
    const uint number = answer.toUInt(&isNumber);
    if (isNumber && number == 1) return true;
    if (isNumber && number == 2) return false;
    return std::nullopt;
}

void PortalScheme::settingChanged(const QString& group, const QString& key, const QDBusVariant& value) {
    if (group == kGroup && key == kKey) take(darkFromAnswer(QVariant::fromValue(value)));
}

void PortalScheme::take(std::optional<bool> prefersDark) {
    if (m_prefersDark == prefersDark) return;
    m_prefersDark = prefersDark;
    changed.fire();
}

}  // namespace velmora
