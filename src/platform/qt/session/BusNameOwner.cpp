#include "platform/qt/session/BusNameOwner.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace velmora {
namespace {

constexpr int kTimeoutMs = 5000;

QString busName() {
    return QStringLiteral("org.freedesktop.DBus");
}

QString busPath() {
    return QStringLiteral("/org/freedesktop/DBus");
}

}  // namespace

BusNameOwner::BusNameOwner(const QDBusConnection& bus, const QString& name,
                           std::function<void(const QString&)> changed)
    : m_bus(bus), m_name(name), m_changed(std::move(changed)) {
    m_bus.connect(busName(), busPath(), busName(), QStringLiteral("NameOwnerChanged"), {m_name}, QString(),
                  this, SLOT(takeChange(QString, QString, QString)));
    QDBusMessage question =
        QDBusMessage::createMethodCall(busName(), busPath(), busName(), QStringLiteral("GetNameOwner"));
    question << m_name;
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(question, kTimeoutMs), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        const QDBusPendingReply<QString> reply = *finished;
        // A change that came meanwhile is newer than this answer. Nobody owning the name is an error too.
        if (!m_isKnown) takeOwner(reply.isError() ? QString() : reply.value());
    });
}

BusNameOwner::~BusNameOwner() {
    m_bus.disconnect(busName(), busPath(), busName(), QStringLiteral("NameOwnerChanged"), {m_name}, QString(),
                     this, SLOT(takeChange(QString, QString, QString)));
}

void BusNameOwner::takeChange(const QString& name, const QString&, const QString& newOwner) {
    if (name == m_name) takeOwner(newOwner);
}

void BusNameOwner::takeOwner(const QString& owner) {
    if (m_isKnown && owner == m_owner) return;
    m_isKnown = true;
    m_owner = owner;
    m_changed(owner);
}

}  // namespace velmora
