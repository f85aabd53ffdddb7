#pragma once

#include "platform/qt/session/SessionBus.h"
#include "platform/qt/tray/NotifierTypes.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QMap>
#include <QObject>
#include <QStringList>

#include <optional>

namespace velmora {

/// A tray host and its watcher in one, on a connection of its own. It remembers who registered, and looks at
/// items as a host does.
class FakeTrayHost final : public QObject, public QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ registeredItems)
public:
    explicit FakeTrayHost(const SessionBus& bus);
    ~FakeTrayHost() override;

    /// Takes the watcher's name on the bus.
    void appear();
    bool hasHost() const { return m_hasHost; }
    /// The host that draws comes or goes while the watcher stays.
    void setHasHost(bool hasHost);
    /// From now on registrations are answered only by `answer`, or the oldest one by `answerFirst`.
    void holdAnswers() { m_holdsAnswers = true; }
    void answer();
    void answerFirst();

    QStringList registeredItems() const { return registered; }
    /// The titles of the registered items, in the order of their registration.
    QStringList titles();
    QVariantMap properties(const QString& item);
    /// The answer to a call of the item; an error message if the call failed.
    QDBusMessage call(const QString& item, const QString& path, const QString& interface,
                      const QString& method, const QVariantList& arguments = {});
    /// Asks the item for its properties, and forgets about it.
    void startReading(const QString& item);
    /// Waits until everything that the item sent so far has arrived.
    void roundTrip(const QString& item);

    QStringList registered;  ///< Addresses in the order of their registration; those that vanished are out.
    int registrations = 0;
    QMap<QString, int> signalCounts;  ///< By the signal's name, from all items.

public slots:
    void RegisterStatusNotifierItem(const QString& service);

signals:
    void StatusNotifierItemRegistered(const QString& service);
    void StatusNotifierHostRegistered();
    void StatusNotifierHostUnregistered();

private slots:
    void signalCame(const QDBusMessage& message);
    void ownerChanged(const QString& name, const QString& before, const QString& after);

private:
    QString m_connectionName;
    std::optional<QDBusConnection> m_connection;
    bool m_hasHost = true;
    bool m_holdsAnswers = false;
    QList<QDBusMessage> m_heldAnswers;
};

}  // namespace velmora
