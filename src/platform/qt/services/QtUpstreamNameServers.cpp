#include "platform/qt/services/QtUpstreamNameServers.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QVariantMap>

#include <utility>

namespace velmora {
namespace {

constexpr int kTimeoutMs = 5000;
constexpr double kThreeRefreshesSeconds = 90;

}  // namespace

QtUpstreamNameServers::QtUpstreamNameServers(const MonotonicClock& clock, Connect connect)
    : m_clock(clock), m_connect(std::move(connect)) {}

std::vector<std::string> QtUpstreamNameServers::latest() {
    if (!m_isUnderWay) ask();
    if (!m_answeredAt || m_clock.seconds() - *m_answeredAt > kThreeRefreshesSeconds) return {};
    return m_servers;
}

void QtUpstreamNameServers::ask() {
    if (!m_bus) m_bus = m_connect();
    if (!m_bus->isConnected()) return;
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.NetworkManager"),
        QStringLiteral("/org/freedesktop/NetworkManager/DnsManager"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << QStringLiteral("org.freedesktop.NetworkManager.DnsManager")
             << QStringLiteral("Configuration");
    question.setAutoStartService(false);
    m_isUnderWay = true;
    auto* const watcher = new QDBusPendingCallWatcher(m_bus->asyncCall(question, kTimeoutMs), &m_context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &m_context,
                     [this](QDBusPendingCallWatcher* finished) {
                         finished->deleteLater();
                         m_isUnderWay = false;
                         const QDBusPendingReply<QDBusVariant> reply = *finished;
                         if (reply.isError()) return;
                         m_servers = serversIn(reply.value().variant());
                         m_answeredAt = m_clock.seconds();
                     });
}

std::vector<std::string> QtUpstreamNameServers::serversIn(const QVariant& configuration) {
    std::vector<std::string> servers;
    if (!configuration.canConvert<QDBusArgument>()) return servers;
    const auto argument = configuration.value<QDBusArgument>();
    if (argument.currentSignature() != QStringLiteral("aa{sv}")) return servers;
    for (const QVariantMap& entry : qdbus_cast<QList<QVariantMap>>(argument)) {
        for (const QString& server : entry.value(QStringLiteral("nameservers")).toStringList()) {
            if (!server.isEmpty()) servers.push_back(server.toStdString());
        }
    }
    return servers;
}

}  // namespace velmora
