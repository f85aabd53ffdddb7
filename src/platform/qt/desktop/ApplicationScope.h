#pragma once

#include <QDBusConnection>
#include <QString>

namespace velmora {

/// Asks the user's systemd to put a process that was just started into a unit of its own, as desktops do with
/// the applications that they start. In the unit of this program it would be counted, limited and ended with
/// it. Does not wait; where there is no systemd, nothing happens.
void moveToScope(const QDBusConnection& bus, const QString& applicationId, qint64 pid);

/// The unit's name, `app-velmora-ID-PID.scope`, with the id's letters that a unit's name cannot have as
/// `\xNN`.
QString scopeName(const QString& applicationId, qint64 pid);

}  // namespace velmora
