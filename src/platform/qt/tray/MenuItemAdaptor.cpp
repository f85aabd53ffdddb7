#include "platform/qt/tray/MenuItemAdaptor.h"

namespace velmora {

QDBusObjectPath MenuItemAdaptor::menu() const {
    return QDBusObjectPath(QStringLiteral("/MenuBar"));
}

}  // namespace velmora
