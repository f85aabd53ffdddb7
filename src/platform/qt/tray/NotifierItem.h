#pragma once

#include "platform/StatusBar.h"
#include "platform/qt/session/SessionBus.h"
#include "platform/qt/tray/HostProfile.h"
#include "platform/qt/tray/NotifierTypes.h"

#include <QDBusConnection>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QDBusPendingCallWatcher;

namespace velmora {

class BusMenu;
class ModuleItemAdaptor;

/// One item as a tray host sees it. Hosts have no "unregister": an item is gone when its connection to the
/// bus is, so each item has one of its own while it is in the tray.
class NotifierItem final : public QObject {
    Q_OBJECT
public:
    /// `menuEntries` is asked whenever a host reads the menu.
    NotifierItem(const SessionBus& bus, const HostProfile& host, const StatusItem& item,
                 std::function<std::vector<StatusMenuEntry>()> menuEntries);
    ~NotifierItem() override;

    const StatusItem& item() const { return m_item; }
    void setItem(const StatusItem& item);
    /// Tells the host of pixels and texts that differ from the last ones, and of nothing else.
    void setImage(const ItemImage& image);
    const ItemImage& image() const { return m_image; }
    /// Tells the host if the menu's titles are others than it last saw.
    void refreshMenu();

    /// Registers with the host, connecting first if need be. `done` is called when the host has answered,
    /// with success or not, but not after `leave`.
    void enter(std::function<void()> done);
    /// The host's answer to `enter` is not waited for any more, and `done` not called.
    void forgetRegistration();
    /// The item vanishes from the tray.
    void leave();
    bool isConnected() const { return m_connection.has_value(); }
    /// The item's address on the bus; empty while it is not connected.
    QString uniqueName() const;

    // What the adaptors publish.
    QString notifierId() const;
    QString notifierTitle() const;
    NotifierToolTip notifierToolTip() const;
    QList<IconImage> notifierIcons() const { return iconImages(m_image); }
    QString notifierLabel() const { return QString::fromStdString(m_image.label); }
    bool isMenu() const { return m_item.hasMenu; }

signals:
    /// A click, at the point that the host says.
    void clicked(int x, int y);
    void menuEntryChosen(const QString& action);

private:
    void connectToBus();

    const SessionBus& m_bus;
    HostProfile m_host;
    StatusItem m_item;
    ItemImage m_image;
    BusMenu* m_menu = nullptr;
    ModuleItemAdaptor* m_adaptor = nullptr;
    QString m_connectionName;
    std::optional<QDBusConnection> m_connection;
    QDBusPendingCallWatcher* m_registration = nullptr;
};

}  // namespace velmora
