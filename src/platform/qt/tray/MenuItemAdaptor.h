#pragma once

#include "platform/qt/tray/ModuleItemAdaptor.h"

#include <QDBusObjectPath>

namespace velmora {

/// `org.kde.StatusNotifierItem` of an item with a menu that the host can read.
class MenuItemAdaptor : public ModuleItemAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QDBusObjectPath Menu READ menu)
public:
    using ModuleItemAdaptor::ModuleItemAdaptor;

    QDBusObjectPath menu() const;
};

}  // namespace velmora
