#pragma once

#include "platform/PowerProfileService.h"

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace velmora {

class BusNameOwner;

/// The property "ActiveProfile" of one name of the service for power profiles, kept up to date.
class ActiveProfile final : public QObject {
    Q_OBJECT

public:
    /// The name is that of the interface too.
    ActiveProfile(const QDBusConnection& bus, QString name, QString path);
    ~ActiveProfile() override;

    /// Nothing while nobody answers.
    const std::optional<std::string>& value() const { return m_value; }

private slots:
    void takeChanges(const QString& interface, const QVariantMap& changed, const QStringList& invalidated);

private:
    void meet(const QString& owner);
    void leave();
    void ask();
    void take(const QVariant& value);

    QDBusConnection m_bus;
    const QString m_service;
    const QString m_path;
    QString m_owner;
    std::unique_ptr<QObject> m_conversation;  ///< Answers of an owner that has gone find nobody.
    std::optional<std::string> m_value;
    std::unique_ptr<BusNameOwner> m_name;
};

/// The power profiles on the system bus, under their present name or their former one. Several programs offer
/// them; none is waited for or started.
class QtPowerProfileService final : public PowerProfileService {
public:
    using Connect = std::function<QDBusConnection()>;

    /// The bus is connected to at the first question.
    explicit QtPowerProfileService(Connect connect = QDBusConnection::systemBus);
    ~QtPowerProfileService() override;

    std::optional<std::string_view> activeProfile() override;

private:
    Connect m_connect;
    bool m_isOpen = false;
    std::unique_ptr<ActiveProfile> m_present;
    std::unique_ptr<ActiveProfile> m_former;
};

}  // namespace velmora
