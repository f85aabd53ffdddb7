#include "platform/qt/services/QtPowerDeviceService.h"

#include "platform/qt/services/PowerDeviceProperties.h"
#include "platform/qt/session/BusNameOwner.h"
#include "platform/qt/session/BusTypes.h"

#include <QDBusArgument>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <algorithm>
#include <utility>

namespace velmora {
namespace {

constexpr int kTimeoutMs = 5000;
/// No machine has more; a service that goes mad must not make this grow.
constexpr std::size_t kMostDevices = 64;

const QString kService = QStringLiteral("org.freedesktop.UPower");
const QString kPath = QStringLiteral("/org/freedesktop/UPower");
const QString kDisplayPath = QStringLiteral("/org/freedesktop/UPower/devices/DisplayDevice");
const QString kDeviceInterface = QStringLiteral("org.freedesktop.UPower.Device");
const QString kPropertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

/// The dictionary that a reply of "GetAll" holds; empty for any other reply.
std::optional<QVariantMap> propertiesIn(const QDBusMessage& reply) {
    if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != QLatin1String("a{sv}"))
        return std::nullopt;
    return qdbus_cast<QVariantMap>(reply.arguments().constFirst());
}

}  // namespace

QtPowerDeviceService::QtPowerDeviceService(Connect connect) : m_connect(std::move(connect)) {}

QtPowerDeviceService::~QtPowerDeviceService() {
    stopListening();
}

PowerDeviceService::State QtPowerDeviceService::state() {
    open();
    return m_state;
}

const PowerDevices& QtPowerDeviceService::devices() {
    open();
    if (!std::exchange(m_isOutdated, false)) return m_devices;
    m_devices = {};
    if (m_state != State::known) return m_devices;
    for (const Entry& each : m_entries) {
        if (!each.isKnown) continue;
        if (each.path == kDisplayPath) {
            m_devices.display = each.device;
        } else {
            m_devices.devices.push_back(each.device);
        }
    }
    return m_devices;
}

void QtPowerDeviceService::open() {
    if (m_bus) return;
    m_bus = m_connect();
    if (!m_bus->isConnected()) {
        m_state = State::absent;
        return;
    }
    m_name = std::make_unique<BusNameOwner>(*m_bus, kService, [this](const QString& owner) {
        leave();
        if (!owner.isEmpty()) meet(owner);
    });
}

void QtPowerDeviceService::meet(const QString& owner) {
    m_state = State::asking;
    m_owner = owner;
    m_conversation = std::make_unique<QObject>();
    m_entries.push_back({kDisplayPath, false, {}});
    listenTo(owner);
    askForProperties(kDisplayPath);
    askForDevices();
}

void QtPowerDeviceService::leave() {
    stopListening();
    m_conversation.reset();
    m_openQuestions = 0;
    m_entries.clear();
    m_isOutdated = true;
    m_state = State::absent;
}

// Signals are matched by the owner's unique name: for any other name the library would ask the bus, and wait,
// who owns it.
void QtPowerDeviceService::listenTo(const QString& owner) {
    registerBusTypes();
    m_bus->connect(owner, kPath, kService, QStringLiteral("DeviceAdded"), this,
                   SLOT(addDevice(QDBusObjectPath)));
    m_bus->connect(owner, kPath, kService, QStringLiteral("DeviceRemoved"), this,
                   SLOT(removeDevice(QDBusObjectPath)));
    m_bus->connect(owner, QString(), kPropertiesInterface, QStringLiteral("PropertiesChanged"), this,
                   SLOT(takeChanges(QString, QVariantMap, QStringList, QDBusMessage)));
}

void QtPowerDeviceService::stopListening() {
    if (m_owner.isEmpty()) return;
    m_bus->disconnect(m_owner, kPath, kService, QStringLiteral("DeviceAdded"), this,
                      SLOT(addDevice(QDBusObjectPath)));
    m_bus->disconnect(m_owner, kPath, kService, QStringLiteral("DeviceRemoved"), this,
                      SLOT(removeDevice(QDBusObjectPath)));
    m_bus->disconnect(m_owner, QString(), kPropertiesInterface, QStringLiteral("PropertiesChanged"), this,
                      SLOT(takeChanges(QString, QVariantMap, QStringList, QDBusMessage)));
    m_owner.clear();
}

void QtPowerDeviceService::askForDevices() {
    call(QDBusMessage::createMethodCall(m_owner, kPath, kService, QStringLiteral("EnumerateDevices")),
         [this](const QDBusMessage& reply) {
             if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != QLatin1String("ao")) {
                 leave();
                 return;
             }
             for (const auto& path : qdbus_cast<QList<QDBusObjectPath>>(reply.arguments().constFirst()))
                 addDevice(path);
         });
}

void QtPowerDeviceService::askForProperties(const QString& path) {
    QDBusMessage question =
        QDBusMessage::createMethodCall(m_owner, path, kPropertiesInterface, QStringLiteral("GetAll"));
    question << kDeviceInterface;
    call(question, [this, path](const QDBusMessage& reply) {
        Entry* const asked = entry(path);
        const auto properties = propertiesIn(reply);
        if (!asked || !properties) return;
        asked->isKnown = true;
        asked->device = {};
        takePowerDeviceProperties(asked->device, *properties);
    });
}

void QtPowerDeviceService::call(const QDBusMessage& question, Reply reply) {
    ++m_openQuestions;
    auto* const watcher =
        new QDBusPendingCallWatcher(m_bus->asyncCall(question, kTimeoutMs), m_conversation.get());
    connect(watcher, &QDBusPendingCallWatcher::finished, m_conversation.get(),
            [this, reply = std::move(reply)](QDBusPendingCallWatcher* finished) {
                const QDBusMessage answer = finished->reply();
                finished->deleteLater();
                --m_openQuestions;
                // The answer may end the conversation, and this function with it.
                const auto handle = reply;
                auto* const self = this;
                handle(answer);
                self->m_isOutdated = true;
                if (self->m_state == State::asking && self->m_openQuestions == 0)
                    self->m_state = State::known;
            });
}

QtPowerDeviceService::Entry* QtPowerDeviceService::entry(const QString& path) {
    const auto found = std::ranges::find(m_entries, path, &Entry::path);
    return found == m_entries.end() ? nullptr : &*found;
}

void QtPowerDeviceService::addDevice(const QDBusObjectPath& path) {
    if (path.path().isEmpty() || entry(path.path()) || m_entries.size() > kMostDevices) return;
    m_entries.push_back({path.path(), false, {}});
    askForProperties(path.path());
}

void QtPowerDeviceService::removeDevice(const QDBusObjectPath& path) {
    if (path.path() == kDisplayPath) return;
    std::erase_if(m_entries, [&](const Entry& each) { return each.path == path.path(); });
    m_isOutdated = true;
}

void QtPowerDeviceService::takeChanges(const QString& interface, const QVariantMap& changed,
                                       const QStringList& invalidated, const QDBusMessage& message) {
    Entry* const changing = entry(message.path());
    if (interface != kDeviceInterface || !changing) return;
    takePowerDeviceProperties(changing->device, changed);
    m_isOutdated = true;
    if (!invalidated.isEmpty()) askForProperties(message.path());
}

}  // namespace velmora
