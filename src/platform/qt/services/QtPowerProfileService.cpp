#include "platform/qt/services/QtPowerProfileService.h"

#include "platform/qt/session/BusNameOwner.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

#include <utility>

namespace velmora {
namespace {

constexpr int kTimeoutMs = 5000;
constexpr int kLongestProfile = 64;

const QString kPropertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
const QString kProperty = QStringLiteral("ActiveProfile");

}  // namespace

ActiveProfile::ActiveProfile(const QDBusConnection& bus, QString name, QString path)
    : m_bus(bus), m_service(std::move(name)), m_path(std::move(path)) {
    m_name = std::make_unique<BusNameOwner>(m_bus, m_service, [this](const QString& owner) {
        leave();
        if (!owner.isEmpty()) meet(owner);
    });
}

ActiveProfile::~ActiveProfile() {
    leave();
}

void ActiveProfile::meet(const QString& owner) {
    m_owner = owner;
    m_conversation = std::make_unique<QObject>();
    m_bus.connect(m_owner, m_path, kPropertiesInterface, QStringLiteral("PropertiesChanged"), this,
                  SLOT(takeChanges(QString, QVariantMap, QStringList)));
    ask();
}

void ActiveProfile::leave() {
    m_value.reset();
    m_conversation.reset();
    if (m_owner.isEmpty()) return;
    m_bus.disconnect(m_owner, m_path, kPropertiesInterface, QStringLiteral("PropertiesChanged"), this,
                     SLOT(takeChanges(QString, QVariantMap, QStringList)));
    m_owner.clear();
}

void ActiveProfile::ask() {
    QDBusMessage question =
        QDBusMessage::createMethodCall(m_owner, m_path, kPropertiesInterface, QStringLiteral("Get"));
    question << m_service << kProperty;
    auto* const watcher =
        new QDBusPendingCallWatcher(m_bus.asyncCall(question, kTimeoutMs), m_conversation.get());
    connect(watcher, &QDBusPendingCallWatcher::finished, m_conversation.get(),
            [this](QDBusPendingCallWatcher* finished) {
                finished->deleteLater();
                const QDBusMessage reply = finished->reply();
                if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != QLatin1String("v"))
                    return;
                take(reply.arguments().constFirst().value<QDBusVariant>().variant());
            });
}

void ActiveProfile::take(const QVariant& value) {
    m_value.reset();
    if (value.metaType() == QMetaType::fromType<QString>())
        m_value = value.toString().left(kLongestProfile).toStdString();
}

void ActiveProfile::takeChanges(const QString& interface, const QVariantMap& changed,
                                const QStringList& invalidated) {
    if (interface != m_service) return;
    if (const auto found = changed.constFind(kProperty); found != changed.constEnd()) take(*found);
    if (invalidated.contains(kProperty)) ask();
}

QtPowerProfileService::QtPowerProfileService(Connect connect) : m_connect(std::move(connect)) {}

QtPowerProfileService::~QtPowerProfileService() = default;

std::optional<std::string_view> QtPowerProfileService::activeProfile() {
    if (!std::exchange(m_isOpen, true)) {
        const QDBusConnection bus = m_connect();
        if (bus.isConnected()) {
            m_present =
                std::make_unique<ActiveProfile>(bus, QStringLiteral("org.freedesktop.UPower.PowerProfiles"),
                                                QStringLiteral("/org/freedesktop/UPower/PowerProfiles"));
            m_former = std::make_unique<ActiveProfile>(bus, QStringLiteral("net.hadess.PowerProfiles"),
                                                       QStringLiteral("/net/hadess/PowerProfiles"));
        }
    }
    for (const auto* profile : {m_present.get(), m_former.get()}) {
        if (profile && profile->value()) return *profile->value();
    }
    return std::nullopt;
}

}  // namespace velmora
