#pragma once

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QMetaType>

namespace velmora {

/// Makes the bus's own types known by name. A slot that has one of them among its parameters cannot be
/// connected to a signal before that, and the library registers them only when it happens to need them.
inline void registerBusTypes() {
    qRegisterMetaType<QDBusVariant>("QDBusVariant");
    qRegisterMetaType<QDBusObjectPath>("QDBusObjectPath");
    qRegisterMetaType<QDBusMessage>("QDBusMessage");
}

}  // namespace velmora
