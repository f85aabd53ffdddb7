#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>

#include <functional>

namespace velmora {

/// Who owns a name on a bus. The name's program is neither asked nor started.
class BusNameOwner : public QObject {
    Q_OBJECT

public:
    /// `changed` gets the owner's unique name, empty for none: once soon after this is made, and at each
    /// change.
    BusNameOwner(const QDBusConnection& bus, const QString& name,
                 std::function<void(const QString&)> changed);
    ~BusNameOwner() override;

private slots:
    void takeChange(const QString& name, const QString& oldOwner, const QString& newOwner);

private:
    void takeOwner(const QString& owner);

    QDBusConnection m_bus;
    QString m_name;
    std::function<void(const QString&)> m_changed;
    bool m_isKnown = false;
    QString m_owner;
};

}  // namespace velmora
