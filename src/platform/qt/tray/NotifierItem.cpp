#include "platform/qt/tray/NotifierItem.h"

#include "model/StatsModule.h"
#include "platform/qt/tray/BusMenu.h"
#include "platform/qt/tray/BusMenuAdaptor.h"
#include "platform/qt/tray/LabelItemAdaptor.h"
#include "platform/qt/tray/MenuItemAdaptor.h"
#include "platform/qt/tray/ModuleItemAdaptor.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

namespace velmora {
namespace {

const QString kItemPath = QStringLiteral("/StatusNotifierItem");
const QString kMenuPath = QStringLiteral("/MenuBar");
constexpr std::string_view kIdPrefix = "Velmora.";
constexpr int kAnswerLimitMs = 5000;
// Of `RequestName`: fail rather than wait in line.
constexpr uint kDoNotQueue = 4;

/// The part of an id that names the module or the fallback.
std::string_view ownName(const std::string& id) {
    std::string_view name = id;
    if (name.starts_with(kIdPrefix)) name.remove_prefix(kIdPrefix.size());
    return name;
}

/// The module's number from the left, as hosts that sort by a text need it in front; empty for the fallback.
QString numberOf(const StatusItem& item) {
    const auto module = moduleFromRawValue(ownName(item.id));
    return module ? QString::number(indexOf(*module) + 1) : QString();
}

QString nextServiceName() {
    static int count = 0;
    return QStringLiteral("org.kde.StatusNotifierItem-%1-%2")
        .arg(QCoreApplication::applicationPid())
        .arg(++count);
}

}  // namespace

NotifierItem::NotifierItem(const SessionBus& bus, const HostProfile& host, const StatusItem& item,
                           std::function<std::vector<StatusMenuEntry>()> menuEntries)
    : m_bus(bus), m_host(host), m_item(item) {
    registerNotifierTypes();
    const bool needsMenu = item.hasMenu || host.itemNeedsMenu;
    if (needsMenu) {
        m_menu = new BusMenu(this, std::move(menuEntries));
        new BusMenuAdaptor(m_menu);
        connect(m_menu, &BusMenu::chosen, this, &NotifierItem::menuEntryChosen);
    }
    if (host.showsLabel && needsMenu && !item.hasMenu) {
        m_adaptor = new LabelItemAdaptor(this);
    } else if (needsMenu) {
        m_adaptor = new MenuItemAdaptor(this);
    } else {
        m_adaptor = new ModuleItemAdaptor(this);
    }
}

NotifierItem::~NotifierItem() {
    leave();
}

void NotifierItem::setItem(const StatusItem& item) {
    const StatusItem before = std::exchange(m_item, item);
    if (!isConnected()) return;
    if (before.title != item.title) emit m_adaptor->NewTitle();
    if (before.toolTip != item.toolTip) emit m_adaptor->NewToolTip();
    refreshMenu();
}

void NotifierItem::setImage(const ItemImage& image) {
    if (m_image.pixels != image.pixels) {
        m_image.pixels = image.pixels;
        if (isConnected()) emit m_adaptor->NewIcon();
    }
    if (m_image.label != image.label) {
        m_image.label = image.label;
        if (isConnected()) m_adaptor->labelChanged();
    }
}

void NotifierItem::refreshMenu() {
    if (m_menu) m_menu->refresh();
}

void NotifierItem::enter(std::function<void()> done) {
    if (!m_connection) connectToBus();
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.kde.StatusNotifierWatcher"), QStringLiteral("/StatusNotifierWatcher"),
        QStringLiteral("org.kde.StatusNotifierWatcher"), QStringLiteral("RegisterStatusNotifierItem"));
    call << m_connection->baseService();
    call.setAutoStartService(false);
    forgetRegistration();
    m_registration = new QDBusPendingCallWatcher(m_connection->asyncCall(call, kAnswerLimitMs), this);
    connect(m_registration, &QDBusPendingCallWatcher::finished, this,
            [this, done = std::move(done)](QDBusPendingCallWatcher* answered) {
                m_registration = nullptr;
                answered->deleteLater();
                // A copy, for `done` may delete this item and this lambda with it.
                const std::function<void()> next = done;
                next();
            });
}

void NotifierItem::forgetRegistration() {
    delete std::exchange(m_registration, nullptr);
}

void NotifierItem::leave() {
    forgetRegistration();
    if (!m_connection) return;
    m_connection->unregisterObject(kItemPath);
    if (m_menu) m_connection->unregisterObject(kMenuPath);
    m_connection.reset();
    SessionBus::close(m_connectionName);
}

QString NotifierItem::uniqueName() const {
    return m_connection ? m_connection->baseService() : QString();
}

QString NotifierItem::notifierId() const {
    const QString number = numberOf(m_item);
    if (m_host.order != HostProfile::Order::id || number.isEmpty()) return QString::fromStdString(m_item.id);
    const std::string_view name = ownName(m_item.id);
    return QStringLiteral("Velmora.%1.%2")
        .arg(number, QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
}

QString NotifierItem::notifierTitle() const {
    const QString title = QString::fromStdString(m_item.title);
    const QString number = numberOf(m_item);
    return number.isEmpty() ? title : QStringLiteral("Velmora %1 %2").arg(number, title);
}

NotifierToolTip NotifierItem::notifierToolTip() const {
    return {{}, {}, QString::fromStdString(m_item.toolTip), {}};
}

void NotifierItem::connectToBus() {
    m_connectionName = SessionBus::newName();
    m_connection = m_bus.open(m_connectionName);
    m_connection->registerObject(kItemPath, this, QDBusConnection::ExportAdaptors);
    if (m_menu) m_connection->registerObject(kMenuPath, m_menu, QDBusConnection::ExportAdaptors);
    QDBusMessage request = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("RequestName"));
    request << nextServiceName() << kDoNotQueue;
    m_connection->asyncCall(request);
}

}  // namespace velmora
