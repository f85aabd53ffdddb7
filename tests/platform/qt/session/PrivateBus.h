#pragma once

#include "platform/qt/session/SessionBus.h"

#include <QProcess>
#include <QTemporaryDir>

#include <functional>

namespace velmora {

/// A message bus of the test's own, in a folder of its own. It starts no services.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();

    /// Empty if the bus could not be started.
    const QString& address() const { return m_address; }
    SessionBus sessionBus() const { return SessionBus(m_address); }

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
};

/// Closes the connection of that name when the object is gone. Before that a message for it may be on its
/// way, and would keep what is closed.
void closeWithObject(QObject& object, const QString& connectionName);

/// Handles events until the condition holds; false if that takes ten seconds.
bool waitUntil(const std::function<bool()>& condition);

}  // namespace velmora
