#pragma once

#include "platform/qt/session/SessionBus.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusVariant>
#include <QObject>
#include <QVariantMap>

#include <optional>

namespace velmora {

/// The part of the desktop's portal that states settings. It wraps a value twice, as the first version does.
class FakePortal final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
public:
    FakePortal(const SessionBus& bus, uint scheme);
    ~FakePortal() override;

    void setScheme(uint scheme);
    /// Tells of a change of another setting.
    void announce(const QString& group, const QString& key, uint value);

public slots:
    QDBusVariant Read(const QString& group, const QString& key);

signals:
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    uint m_scheme;
    QString m_connectionName;
    std::optional<QDBusConnection> m_connection;
};

/// Xfce's configuration service with the panel's channel.
class FakeXfconf final : public QObject, public QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.xfce.Xfconf")
public:
    explicit FakeXfconf(const SessionBus& bus, QVariantMap properties);
    ~FakeXfconf() override;

    void set(const QString& property, const QVariant& value);

public slots:
    QDBusVariant GetProperty(const QString& channel, const QString& property);

signals:
    void PropertyChanged(const QString& channel, const QString& property, const QDBusVariant& value);

private:
    QVariantMap m_properties;
    QString m_connectionName;
    std::optional<QDBusConnection> m_connection;
};

}  // namespace velmora
