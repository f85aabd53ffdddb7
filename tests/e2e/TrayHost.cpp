#include "TrayHost.h"

#include "PrivateSession.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QtEndian>

namespace velmora {
namespace {

constexpr auto kItemPath = "/StatusNotifierItem";
constexpr auto kItemInterface = "org.kde.StatusNotifierItem";
constexpr auto kMenuPath = "/MenuBar";
constexpr auto kMenuInterface = "com.canonical.dbusmenu";

/// Waits while this host goes on serving what the program asks of it. The toolkit's own way of waiting so
/// never ends if the answer comes before it has begun.
QDBusMessage answer(const QDBusConnection& bus, const QDBusMessage& call) {
    constexpr int kTimeoutMs = 5000;
    const QDBusPendingCall pending = QDBusConnection(bus).asyncCall(call, kTimeoutMs);
    waitUntil([&] { return pending.isFinished(); });
    return pending.reply();
}

struct MenuEntry {
    int id = 0;
    QVariantMap properties;
};

/// One level of (ia{sv}av).
std::vector<MenuEntry> entriesOf(const QVariantList& variants) {
    std::vector<MenuEntry> entries;
    for (const QVariant& variant : variants) {
        const auto argument = variant.value<QDBusArgument>();
        MenuEntry entry;
        QVariantList ignored;
        argument.beginStructure();
        argument >> entry.id >> entry.properties >> ignored;
        argument.endStructure();
        entries.push_back(entry);
    }
    return entries;
}

}  // namespace

TrayHost::TrayHost(const QString& busAddress)
    : m_connectionName(QString("tray-host-%1").arg(reinterpret_cast<quintptr>(this))),
      m_bus(QDBusConnection::connectToBus(busAddress, m_connectionName)) {
    m_bus.registerObject("/StatusNotifierWatcher", this,
                         QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals |
                             QDBusConnection::ExportAllProperties);
    m_bus.connect("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameOwnerChanged",
                  this, SLOT(ownerChanged(QString, QString, QString)));
    m_bus.registerService("org.kde.StatusNotifierWatcher");
}

TrayHost::~TrayHost() {
    m_bus = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(m_connectionName);
}

void TrayHost::RegisterStatusNotifierItem(const QString& service) {
    const QString item = service.startsWith('/') || service.isEmpty() ? message().service() : service;
    m_items.append(item);
    m_bus.connect(item, kItemPath, kItemInterface, "NewIcon", this, SLOT(newIcon(QDBusMessage)));
    Q_EMIT StatusNotifierItemRegistered(item);
}

void TrayHost::newIcon(const QDBusMessage& message) {
    ++m_newIcons[message.service()];
}

void TrayHost::ownerChanged(const QString& name, const QString&, const QString& after) {
    if (!after.isEmpty() || !m_items.removeOne(name)) return;
    Q_EMIT StatusNotifierItemUnregistered(name);
}

QVariant TrayHost::property(const QString& item, const char* name) const {
    QDBusMessage call =
        QDBusMessage::createMethodCall(item, kItemPath, "org.freedesktop.DBus.Properties", "Get");
    call.setArguments({QString(kItemInterface), QString(name)});
    const QDBusMessage reply = answer(m_bus, call);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) return {};
    return reply.arguments().first().value<QDBusVariant>().variant();
}

QStringList TrayHost::properties(const char* name) const {
    QStringList values;
    for (const QString& item : QStringList(m_items)) values.append(property(item, name).toString());
    return values;
}

QString TrayHost::itemNamed(const QString& id) const {
    for (const QString& item : QStringList(m_items)) {
        if (property(item, "Id").toString() == id) return item;
    }
    return {};
}

std::vector<QImage> TrayHost::icons(const QString& item) const {
    const QVariant value = property(item, "IconPixmap");
    if (!value.canConvert<QDBusArgument>()) return {};
    const auto argument = value.value<QDBusArgument>();
    std::vector<QImage> images;
    argument.beginArray();
    while (!argument.atEnd()) {
        int width = 0;
        int height = 0;
        QByteArray bytes;
        argument.beginStructure();
        argument >> width >> height >> bytes;
        argument.endStructure();
        if (bytes.size() != qsizetype(width) * height * 4) return {};
        QImage image(width, height, QImage::Format_ARGB32);
        for (int row = 0; row < height; ++row) {
            qFromBigEndian<quint32>(bytes.constData() + qsizetype(row) * width * 4, width,
                                    image.scanLine(row));
        }
        images.push_back(image);
    }
    argument.endArray();
    return images;
}

int TrayHost::newIconCount(const QString& item) const {
    const auto entry = m_newIcons.find(item);
    return entry == m_newIcons.end() ? 0 : entry->second;
}

void TrayHost::activate(const QString& item, int x, int y) const {
    QDBusMessage call = QDBusMessage::createMethodCall(item, kItemPath, kItemInterface, "Activate");
    call.setArguments({x, y});
    answer(m_bus, call);
}

QVariantList TrayHost::menuLayout(const QString& item) const {
    QDBusMessage call = QDBusMessage::createMethodCall(item, kMenuPath, kMenuInterface, "GetLayout");
    call.setArguments({0, -1, QStringList()});
    const QDBusMessage reply = answer(m_bus, call);
    if (reply.arguments().size() != 2) return {};
    const auto root = reply.arguments().at(1).value<QDBusArgument>();
    int id = 0;
    QVariantMap properties;
    QVariantList entries;
    root.beginStructure();
    root >> id >> properties >> entries;
    root.endStructure();
    return entries;
}

QStringList TrayHost::menuTitles(const QString& item) const {
    QStringList titles;
    for (const MenuEntry& entry : entriesOf(menuLayout(item))) {
        titles.append(
            entry.properties.value("type") == "separator" ? "-" : entry.properties.value("label").toString());
    }
    return titles;
}

void TrayHost::chooseFromMenu(const QString& item, const QString& title) const {
    for (const MenuEntry& entry : entriesOf(menuLayout(item))) {
        if (entry.properties.value("label").toString() != title) continue;
        QDBusMessage call = QDBusMessage::createMethodCall(item, kMenuPath, kMenuInterface, "Event");
        call.setArguments({entry.id, QString("clicked"), QVariant::fromValue(QDBusVariant(0)), 0u});
        m_bus.call(call, QDBus::NoBlock);
    }
}

}  // namespace velmora
