#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <QString>

namespace velmora {

/// The part of a desktop portal that tells whether the desktop is light or dark.
class PortalSettings final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    enum class Preference : uint { none = 0, dark = 1, light = 2 };

    PortalSettings(const QString& busAddress, Preference preference);
    ~PortalSettings() override;

    void set(Preference preference);

public Q_SLOTS:
    /// A variant within a variant, as portals answer.
    QDBusVariant Read(const QString& group, const QString& key) const;

Q_SIGNALS:
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    Preference m_preference;
    QString m_connectionName;
    QDBusConnection m_bus;
};

}  // namespace velmora
