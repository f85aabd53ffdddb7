#include "platform/qt/tray/NotifierWatcher.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QFile>

#include <utility>

namespace velmora {
namespace {

const QString kService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kPath = QStringLiteral("/StatusNotifierWatcher");
const QString kBus = QStringLiteral("org.freedesktop.DBus");
const QString kHostSignals[] = {QStringLiteral("StatusNotifierHostRegistered"),
                                QStringLiteral("StatusNotifierHostUnregistered")};
constexpr int kAnswerLimitMs = 5000;

QDBusMessage callToBus(const char* method, const QString& argument) {
    QDBusMessage call = QDBusMessage::createMethodCall(kBus, QStringLiteral("/org/freedesktop/DBus"), kBus,
                                                       QString::fromLatin1(method));
    call << argument;
    return call;
}

/// Calls `then` with the finished call, unless the context is gone by then.
template <typename Then>
void ask(QDBusConnection& connection, const QDBusMessage& call, QObject* context, Then then) {
    auto* const pending = new QDBusPendingCallWatcher(connection.asyncCall(call, kAnswerLimitMs), context);
    QObject::connect(pending, &QDBusPendingCallWatcher::finished, context,
                     [then = std::move(then)](QDBusPendingCallWatcher* finished) {
                         finished->deleteLater();
                         then(*finished);
                     });
}

}  // namespace

NotifierWatcher::NotifierWatcher(const SessionBus& bus, ProcessName processName)
    : m_processName(std::move(processName)) {
    if (bus.isPresent()) {
        m_connectionName = SessionBus::newName();
        m_connection = bus.open(m_connectionName);
    }
    if (!m_connection || !m_connection->isConnected()) {
        m_settled = true;
        return;
    }

    m_serviceWatcher =
        new QDBusServiceWatcher(kService, *m_connection, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(m_serviceWatcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& owner) { ownerChanged(owner); });
    // Without the service's name: with it the library would wait for the bus to tell who owns it.
    for (const QString& signal : kHostSignals) {
        m_connection->connect({}, kPath, kService, signal, this, SLOT(askForHost()));
    }
    ask(*m_connection, callToBus("GetNameOwner", kService), this, [this](const QDBusPendingCall& finished) {
        const QDBusPendingReply<QString> reply(finished);
        ownerChanged(reply.isError() ? QString() : reply.value());
    });
}

NotifierWatcher::~NotifierWatcher() {
    delete m_serviceWatcher;
    if (!m_connection) return;
    // A signal that came while the connection closes would keep what is gone.
    for (const QString& signal : kHostSignals) {
        m_connection->disconnect({}, kPath, kService, signal, this, SLOT(askForHost()));
    }
    m_connection.reset();
    SessionBus::close(m_connectionName);
}

std::string NotifierWatcher::nameFromSystem(unsigned processId) {
    QFile file(QStringLiteral("/proc/%1/comm").arg(processId));
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toStdString() : std::string();
}

void NotifierWatcher::ownerChanged(const QString& owner) {
    m_owner = owner;
    if (owner.isEmpty()) {
        settle(std::nullopt);
    } else {
        askForProcess(owner);
    }
}

void NotifierWatcher::askForProcess(const QString& owner) {
    ask(*m_connection, callToBus("GetConnectionUnixProcessID", owner), this,
        [this, owner](const QDBusPendingCall& finished) {
            if (owner != m_owner) return;
            const QDBusPendingReply<uint> reply(finished);
            m_profile =
                HostProfile::forProcess(reply.isError() ? std::string() : m_processName(reply.value()));
            askForHost();
        });
}

/// A watcher may be there before, and after, a host that draws what registers with it.
void NotifierWatcher::askForHost() {
    if (m_owner.isEmpty()) return;
    QDBusMessage call = QDBusMessage::createMethodCall(
        m_owner, kPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    call << kService << QStringLiteral("IsStatusNotifierHostRegistered");
    ask(*m_connection, call, this, [this, owner = m_owner](const QDBusPendingCall& finished) {
        if (owner != m_owner) return;
        const QDBusPendingReply<QDBusVariant> reply(finished);
        const bool present = !reply.isError() && reply.value().variant().toBool();
        settle(present ? std::optional<Host>({owner, m_profile}) : std::nullopt);
    });
}

void NotifierWatcher::settle(std::optional<Host> host) {
    const bool first = !std::exchange(m_settled, true);
    if (m_host == host && !first) return;
    m_host = std::move(host);
    hostChanged.fire();
}

}  // namespace velmora
