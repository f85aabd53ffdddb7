#pragma once

#include <QDBusConnection>
#include <QString>

namespace velmora {

/// The bus that tray hosts and the desktop's settings live on.
class SessionBus {
public:
    /// The user's session bus, or the one at the given address.
    explicit SessionBus(QString address = {}) : m_address(std::move(address)) {}

    /// Whether there is an address to connect to. Without one the library would start a bus of its own.
    bool isPresent() const;
    /// A connection of its own under the given name, which must be new in this process.
    QDBusConnection open(const QString& name) const;
    /// Ends the connection of that name. Every copy of it must be gone by then, or it lives on; and nothing
    /// may receive from it any more, or a message that comes in this moment is delivered from a connection
    /// that is gone.
    static void close(const QString& name);
    /// A name that no other connection of this process has.
    static QString newName();

private:
    QString m_address;
};

}  // namespace velmora
