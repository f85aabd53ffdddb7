#pragma once

#include "platform/qt/session/PrivateBus.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QString>

#include <functional>
#include <vector>

namespace velmora {

/// A program on a private bus that remembers what it is asked and answers as a test says. It has every object
/// and every interface.
class RecordingBus final : public QDBusVirtualObject {
public:
    RecordingBus() : m_name(SessionBus::newName()), m_connection(bus.sessionBus().open(m_name)) {
        m_connection.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
    }
    ~RecordingBus() override {
        m_connection.unregisterObject(QStringLiteral("/"));
        m_connection = QDBusConnection(QString());
        SessionBus::close(m_name);
    }
    RecordingBus(const RecordingBus&) = delete;
    RecordingBus& operator=(const RecordingBus&) = delete;

    void own(const char* service) { m_connection.registerService(QLatin1String(service)); }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        calls.push_back(message);
        connection.send(answer ? answer(message) : message.createReply());
        return true;
    }

    PrivateBus bus;
    std::vector<QDBusMessage> calls;
    /// An empty answer by default.
    std::function<QDBusMessage(const QDBusMessage& question)> answer;

private:
    QString m_name;
    QDBusConnection m_connection;
};

}  // namespace velmora
