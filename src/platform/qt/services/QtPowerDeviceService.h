#pragma once

#include "platform/PowerDeviceService.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace velmora {

class BusNameOwner;

/// UPower on the system bus. All of its devices are asked once and from then on it tells what changes. It is
/// neither waited for nor started; one that comes later, or again, is met like one that was there.
class QtPowerDeviceService final : public QObject, public PowerDeviceService {
    Q_OBJECT

public:
    using Connect = std::function<QDBusConnection()>;

    /// The bus is connected to at the first question.
    explicit QtPowerDeviceService(Connect connect = QDBusConnection::systemBus);
    ~QtPowerDeviceService() override;

    State state() override;
    const PowerDevices& devices() override;

private slots:
    void addDevice(const QDBusObjectPath& path);
    void removeDevice(const QDBusObjectPath& path);
    void takeChanges(const QString& interface, const QVariantMap& changed, const QStringList& invalidated,
                     const QDBusMessage& message);

private:
    struct Entry {
        QString path;
        bool isKnown = false;  ///< It has told all of its properties.
        PowerDevice device;
    };
    using Reply = std::function<void(const QDBusMessage&)>;

    void open();
    void meet(const QString& owner);
    void leave();
    void listenTo(const QString& owner);
    void stopListening();
    void askForDevices();
    void askForProperties(const QString& path);
    void call(const QDBusMessage& question, Reply reply);
    Entry* entry(const QString& path);

    Connect m_connect;
    std::optional<QDBusConnection> m_bus;
    std::unique_ptr<BusNameOwner> m_name;
    State m_state = State::asking;
    QString m_owner;
    std::unique_ptr<QObject> m_conversation;  ///< Answers of an owner that has gone find nobody.
    int m_openQuestions = 0;
    std::vector<Entry> m_entries;  ///< The first one is the display device.
    bool m_isOutdated = true;      ///< `m_devices` was not made from these entries.
    PowerDevices m_devices;
};

}  // namespace velmora
