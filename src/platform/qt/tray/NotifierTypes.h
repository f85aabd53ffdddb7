#pragma once

#include "platform/StatusBar.h"

#include <QByteArray>
#include <QDBusArgument>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVariant>

// The structures that tray hosts and menus exchange over the bus.

namespace velmora {

/// `(iiay)`: rows top down, each pixel the bytes alpha, red, green, blue, straight alpha.
struct IconImage {
    int width = 0;
    int height = 0;
    QByteArray bytes;
};
QList<IconImage> iconImages(const ItemImage& image);

/// `(sa(iiay)ss)`.
struct NotifierToolTip {
    QString iconName;
    QList<IconImage> icon;
    QString title;
    QString text;
};

/// `(ia{sv})`: an entry of a menu with its properties.
struct MenuItemProperties {
    int id = 0;
    QVariantMap properties;
};

/// `(ias)`: an entry of a menu with names of properties.
struct MenuItemKeys {
    int id = 0;
    QStringList keys;
};

/// `(ia{sv}av)`: an entry of a menu with what hangs below it.
struct MenuLayoutItem {
    int id = 0;
    QVariantMap properties;
    QList<MenuLayoutItem> children;
};

/// `(isvu)`: what the user did with an entry.
struct MenuEvent {
    int id = 0;
    QString name;
    QDBusVariant data;
    uint timestamp = 0;
};

/// `aas`: key combinations, each a list of keys.
using MenuShortcut = QList<QStringList>;

QDBusArgument& operator<<(QDBusArgument& argument, const IconImage& image);
const QDBusArgument& operator>>(const QDBusArgument& argument, IconImage& image);
QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& tip);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& tip);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuItemProperties& item);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuItemProperties& item);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuItemKeys& item);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuItemKeys& item);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuLayoutItem& item);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuLayoutItem& item);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuEvent& event);

/// To be called before any of these is sent; more than once does no harm.
void registerNotifierTypes();

}  // namespace velmora

Q_DECLARE_METATYPE(velmora::IconImage)
Q_DECLARE_METATYPE(velmora::NotifierToolTip)
Q_DECLARE_METATYPE(velmora::MenuItemProperties)
Q_DECLARE_METATYPE(velmora::MenuItemKeys)
Q_DECLARE_METATYPE(velmora::MenuLayoutItem)
Q_DECLARE_METATYPE(velmora::MenuEvent)
