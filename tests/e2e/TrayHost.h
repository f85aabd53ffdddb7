#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusContext>
#include <QImage>
#include <QObject>
#include <QStringList>
#include <QVariant>

#include <map>
#include <optional>
#include <vector>

namespace velmora {

/// A tray host on a session bus, as desktops have one: it takes registrations, and reads and clicks the items
/// from outside.
class TrayHost final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ items)
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion)

public:
    explicit TrayHost(const QString& busAddress);
    ~TrayHost() override;

    /// The items' bus names in the order of registration, those that have left taken out.
    QStringList items() const { return m_items; }
    bool hasHost() const { return true; }
    int protocolVersion() const { return 0; }

    QVariant property(const QString& item, const char* name) const;
    /// The texts of the property over all items, in the order of registration.
    QStringList properties(const char* name) const;
    /// The bus name of the item with the given Id; empty if there is none.
    QString itemNamed(const QString& id) const;
    /// The item's images, smallest first.
    std::vector<QImage> icons(const QString& item) const;
    /// How many NewIcon signals came from the item.
    int newIconCount(const QString& item) const;
    void activate(const QString& item, int x, int y) const;
    /// Titles of the item's menu, and an event on one of them.
    QStringList menuTitles(const QString& item) const;
    void chooseFromMenu(const QString& item, const QString& title) const;

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString& service);
    void RegisterStatusNotifierHost(const QString&) {}
    void newIcon(const QDBusMessage& message);
    void ownerChanged(const QString& name, const QString& before, const QString& after);

Q_SIGNALS:
    void StatusNotifierItemRegistered(const QString& item);
    void StatusNotifierItemUnregistered(const QString& item);
    void StatusNotifierHostRegistered();
    void StatusNotifierHostUnregistered();

private:
    QVariantList menuLayout(const QString& item) const;

    QString m_connectionName;
    QDBusConnection m_bus;
    QStringList m_items;
    std::map<QString, int> m_newIcons;
};

}  // namespace velmora
