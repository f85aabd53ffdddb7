#include "platform/qt/tray/FakeTrayHost.h"

#include "platform/qt/session/PrivateBus.h"

#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>

namespace velmora {
namespace {

const QString kWatcher = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kWatcherPath = QStringLiteral("/StatusNotifierWatcher");
const QString kItem = QStringLiteral("org.kde.StatusNotifierItem");
const QString kItemPath = QStringLiteral("/StatusNotifierItem");
const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");

}  // namespace

FakeTrayHost::FakeTrayHost(const SessionBus& bus)
    : m_connectionName(SessionBus::newName()), m_connection(bus.open(m_connectionName)) {
    registerNotifierTypes();
    const QString driver = QStringLiteral("org.freedesktop.DBus");
    m_connection->connect(driver, QStringLiteral("/org/freedesktop/DBus"), driver,
                          QStringLiteral("NameOwnerChanged"), this,
                          SLOT(ownerChanged(QString, QString, QString)));
    for (const char* signal : {"NewTitle", "NewIcon", "NewToolTip", "XAyatanaNewLabel"}) {
        m_connection->connect({}, kItemPath, kItem, QString::fromLatin1(signal), this,
                              SLOT(signalCame(QDBusMessage)));
    }
    m_connection->connect({}, QStringLiteral("/MenuBar"), QStringLiteral("com.canonical.dbusmenu"),
                          QStringLiteral("LayoutUpdated"), this, SLOT(signalCame(QDBusMessage)));
    closeWithObject(*this, m_connectionName);
}

FakeTrayHost::~FakeTrayHost() {
    m_connection->unregisterObject(kWatcherPath);
}

void FakeTrayHost::appear() {
    m_connection->registerObject(kWatcherPath, this, QDBusConnection::ExportAllContents);
    m_connection->registerService(kWatcher);
}

void FakeTrayHost::setHasHost(bool hasHost) {
    m_hasHost = hasHost;
    if (hasHost) {
        emit StatusNotifierHostRegistered();
    } else {
        emit StatusNotifierHostUnregistered();
    }
}

void FakeTrayHost::answer() {
    m_holdsAnswers = false;
    for (const QDBusMessage& held : m_heldAnswers) m_connection->send(held);
    m_heldAnswers.clear();
}

void FakeTrayHost::answerFirst() {
    m_connection->send(m_heldAnswers.takeFirst());
}

QStringList FakeTrayHost::titles() {
    QStringList titles;
    for (const QString& item : registered)
        titles.push_back(properties(item).value(QStringLiteral("Title")).toString());
    return titles;
}

QVariantMap FakeTrayHost::properties(const QString& item) {
    const QDBusMessage reply = call(item, kItemPath, kProperties, QStringLiteral("GetAll"), {kItem});
    return reply.type() == QDBusMessage::ReplyMessage ? qdbus_cast<QVariantMap>(reply.arguments().value(0))
                                                      : QVariantMap();
}

QDBusMessage FakeTrayHost::call(const QString& item, const QString& path, const QString& interface,
                                const QString& method, const QVariantList& arguments) {
    QDBusMessage message = QDBusMessage::createMethodCall(item, path, interface, method);
    message.setArguments(arguments);
    // The item lives on this thread too, so waiting means to handle events; the answer is taken as one of
    // them, after the signals that came before it.
    QDBusPendingCallWatcher watcher(m_connection->asyncCall(message));
    bool finished = false;
    connect(&watcher, &QDBusPendingCallWatcher::finished, this, [&finished] { finished = true; });
    waitUntil([&finished] { return finished; });
    return watcher.reply();
}

void FakeTrayHost::startReading(const QString& item) {
    QDBusMessage message =
        QDBusMessage::createMethodCall(item, kItemPath, kProperties, QStringLiteral("GetAll"));
    message << kItem;
    m_connection->asyncCall(message);
}

void FakeTrayHost::roundTrip(const QString& item) {
    call(item, kItemPath, QStringLiteral("org.freedesktop.DBus.Peer"), QStringLiteral("Ping"));
}

void FakeTrayHost::RegisterStatusNotifierItem(const QString& service) {
    ++registrations;
    registered.removeAll(service);
    registered.push_back(service);
    if (!m_holdsAnswers) return;
    setDelayedReply(true);
    m_heldAnswers.push_back(message().createReply());
}

void FakeTrayHost::ownerChanged(const QString& name, const QString&, const QString& after) {
    if (after.isEmpty()) registered.removeAll(name);
}

void FakeTrayHost::signalCame(const QDBusMessage& message) {
    ++signalCounts[message.member()];
}

}  // namespace velmora
