#pragma once

#include "base/Signal.h"
#include "platform/qt/session/SessionBus.h"
#include "platform/qt/tray/HostProfile.h"

#include <QDBusConnection>
#include <QObject>

#include <functional>
#include <optional>
#include <string>

class QDBusServiceWatcher;

namespace velmora {

/// Knows whether a tray host is there, and what it does with items. Asks the bus without waiting.
class NotifierWatcher final : public QObject {
    Q_OBJECT
public:
    struct Host {
        QString owner;  ///< The address of the process that items register with.
        HostProfile profile;
        friend bool operator==(const Host&, const Host&) = default;
    };
    /// The name of a process by its number, as the kernel keeps it; empty if unknown.
    using ProcessName = std::function<std::string(unsigned processId)>;

    explicit NotifierWatcher(const SessionBus& bus, ProcessName processName = nameFromSystem);
    ~NotifierWatcher() override;

    /// False until the bus has answered for the first time; without a bus there is no host from the start.
    bool isSettled() const { return m_settled; }
    const std::optional<Host>& host() const { return m_host; }

    Signal<> hostChanged;  ///< Also when the first answer is there.

    static std::string nameFromSystem(unsigned processId);

private slots:
    void askForHost();

private:
    void ownerChanged(const QString& owner);
    void askForProcess(const QString& owner);
    void settle(std::optional<Host> host);

    ProcessName m_processName;
    QString m_connectionName;
    std::optional<QDBusConnection> m_connection;
    QDBusServiceWatcher* m_serviceWatcher = nullptr;
    QString m_owner;
    HostProfile m_profile;
    bool m_settled = false;
    std::optional<Host> m_host;
};

}  // namespace velmora
