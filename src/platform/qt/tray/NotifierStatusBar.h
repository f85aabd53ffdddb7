#pragma once

#include "base/Subscription.h"
#include "platform/RunLoop.h"
#include "platform/StatusBar.h"
#include "platform/qt/session/Session.h"
#include "platform/qt/session/SessionBus.h"
#include "platform/qt/tray/HostProfile.h"
#include "platform/qt/window/StatusItemMenu.h"

#include <QObject>

#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace velmora {

class NotifierItem;

/// The items as a tray host's items. They register one at a time: some hosts lose items that come in a burst,
/// or when one goes and comes back at once.
class NotifierStatusBar final : public QObject, public StatusBar {
public:
    /// `bus` must outlive the bar.
    NotifierStatusBar(RunLoop& loop, const SessionBus& bus, const Session& session, const HostProfile& host);
    ~NotifierStatusBar() override;

    static constexpr double kStepSeconds = 0.3;  ///< From a host's answer to the next registration.
    static constexpr double kRestSeconds = 1.0;  ///< From an item's leaving to any registration.

    /// Whether the host's bar is dark.
    void setDark(bool dark);
    /// The host is another process now: everything registers anew.
    void registerAll();

    Appearance appearance() const override;
    void setItems(const std::vector<StatusItem>& items) override;
    void setImage(const std::string& id, const ItemImage& image) override;
    bool isVisible() const override { return true; }

    const StatusItemMenu& menu() const { return m_menu; }
    /// The pixel ratios that images should come in, where the largest of the screens is `largest`.
    static std::vector<double> ratiosFor(const HostProfile& host, double largest);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    NotifierItem* find(const std::string& id) const;
    std::unique_ptr<NotifierItem> makeItem(const StatusItem& item);
    std::vector<StatusMenuEntry> entriesOf(const std::string& id) const;
    void clicked(const std::string& id, int x, int y);
    void chosen(const std::string& id, const QString& action);
    Anchor anchorFor(const NotifierItem& item, int x, int y) const;
    void takeOut(NotifierItem& item);
    void step();
    void screensChanged();

    RunLoop& m_loop;
    const SessionBus& m_bus;
    Session m_session;
    HostProfile m_host;
    bool m_dark = false;
    std::vector<double> m_ratios;
    StatusItemMenu m_menu;
    std::vector<std::unique_ptr<NotifierItem>> m_items;  // From left to right.
    std::vector<NotifierItem*> m_entered;                // In the order of registration.
    std::deque<NotifierItem*> m_waiting;
    NotifierItem* m_entering = nullptr;  // Has not been answered yet; also in `m_entered`.
    Subscription m_stepPause;
    Subscription m_restPause;
};

}  // namespace velmora
