#pragma once

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <vector>

namespace velmora {

/// Programs on a private bus that answer as a test says: properties by path and interface, and everything
/// else by a function. What a test leaves unanswered stays so.
class FakePowerBus final : public QDBusVirtualObject {
public:
    explicit FakePowerBus(const QDBusConnection& connection) : bus(connection) {
        bus.registerVirtualObject(QStringLiteral("/org/freedesktop/UPower"), this, QDBusConnection::SubPath);
        bus.registerVirtualObject(QStringLiteral("/net/hadess/PowerProfiles"), this,
                                  QDBusConnection::SubPath);
    }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        calls.push_back(message.member());
        if (isSilent) {
            message.setDelayedReply(true);
            return true;
        }
        const QVariantMap known = properties.value(message.path());
        QDBusMessage reply = message.createErrorReply(QDBusError::Failed, QStringLiteral("no"));
        if (override && override(message, reply)) {
            connection.send(reply);
        } else if (message.member() == QLatin1String("EnumerateDevices")) {
            connection.send(message.createReply(QVariant::fromValue(devices)));
        } else if (message.member() == QLatin1String("GetAll") && properties.contains(message.path())) {
            connection.send(message.createReply(known));
        } else if (message.member() == QLatin1String("Get") &&
                   known.contains(message.arguments().at(1).toString())) {
            connection.send(message.createReply(
                QVariant::fromValue(QDBusVariant(known.value(message.arguments().at(1).toString())))));
        } else {
            connection.send(reply);
        }
        return true;
    }

    void tell(const QString& path, const QString& interface, const QVariantMap& changed,
              const QStringList& invalidated = {}) {
        QDBusMessage signal = QDBusMessage::createSignal(
            path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"));
        signal << interface << changed << invalidated;
        bus.send(signal);
    }
    void tellDevice(const char* member, const QString& path) {
        QDBusMessage signal =
            QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/UPower"),
                                       QStringLiteral("org.freedesktop.UPower"), QLatin1String(member));
        signal << QVariant::fromValue(QDBusObjectPath(path));
        bus.send(signal);
    }

    QDBusConnection bus;
    QList<QDBusObjectPath> devices;
    QMap<QString, QVariantMap> properties;  ///< By path.
    bool isSilent = false;
    /// Writes a reply of its own and gives true, or leaves the question to the rest.
    std::function<bool(const QDBusMessage& question, QDBusMessage& reply)> override;
    std::vector<QString> calls;
};

}  // namespace velmora
