#include "platform/qt/tray/NotifierTypes.h"

#include <QDBusMetaType>
#include <QtEndian>

#include <cstddef>

namespace velmora {

QList<IconImage> iconImages(const ItemImage& image) {
    QList<IconImage> images;
    images.reserve(static_cast<qsizetype>(image.pixels.size()));
    for (const ItemPixels& pixels : image.pixels) {
        IconImage icon{pixels.width, pixels.height, {}};
        icon.bytes.resize(static_cast<qsizetype>(pixels.argb.size()) * qsizetype{sizeof(std::uint32_t)});
        qToBigEndian<quint32>(pixels.argb.data(), static_cast<qsizetype>(pixels.argb.size()),
                              icon.bytes.data());
        images.push_back(std::move(icon));
    }
    return images;
}

QDBusArgument& operator<<(QDBusArgument& argument, const IconImage& image) {
    argument.beginStructure();
    argument << image.width << image.height << image.bytes;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, IconImage& image) {
    argument.beginStructure();
    argument >> image.width >> image.height >> image.bytes;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& tip) {
    argument.beginStructure();
    argument << tip.iconName << tip.icon << tip.title << tip.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& tip) {
    argument.beginStructure();
    argument >> tip.iconName >> tip.icon >> tip.title >> tip.text;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuItemProperties& item) {
    argument.beginStructure();
    argument << item.id << item.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuItemProperties& item) {
    argument.beginStructure();
    argument >> item.id >> item.properties;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuItemKeys& item) {
    argument.beginStructure();
    argument << item.id << item.keys;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuItemKeys& item) {
    argument.beginStructure();
    argument >> item.id >> item.keys;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuLayoutItem& item) {
    argument.beginStructure();
    argument << item.id << item.properties;
    argument.beginArray(QMetaType::fromType<QDBusVariant>());
    for (const MenuLayoutItem& child : item.children) {
        argument << QDBusVariant(QVariant::fromValue(child));
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuLayoutItem& item) {
    argument.beginStructure();
    argument >> item.id >> item.properties;
    argument.beginArray();
    item.children.clear();
    while (!argument.atEnd()) {
        QDBusVariant wrapped;
        argument >> wrapped;
        item.children.push_back(qdbus_cast<MenuLayoutItem>(wrapped.variant()));
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuEvent& event) {
    argument.beginStructure();
    argument << event.id << event.name << event.data << event.timestamp;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuEvent& event) {
    argument.beginStructure();
    argument >> event.id >> event.name >> event.data >> event.timestamp;
    argument.endStructure();
    return argument;
}

void registerNotifierTypes() {
    qDBusRegisterMetaType<IconImage>();
    qDBusRegisterMetaType<QList<IconImage>>();
    qDBusRegisterMetaType<NotifierToolTip>();
    qDBusRegisterMetaType<MenuItemProperties>();
    qDBusRegisterMetaType<QList<MenuItemProperties>>();
    qDBusRegisterMetaType<MenuItemKeys>();
    qDBusRegisterMetaType<QList<MenuItemKeys>>();
    qDBusRegisterMetaType<MenuLayoutItem>();
    qDBusRegisterMetaType<MenuEvent>();
    qDBusRegisterMetaType<QList<MenuEvent>>();
    qDBusRegisterMetaType<QList<int>>();
    qDBusRegisterMetaType<MenuShortcut>();
}

}  // namespace velmora
