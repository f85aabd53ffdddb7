#pragma once

#include "base/Subscription.h"
#include "platform/RunLoop.h"
#include "platform/StatusBar.h"
#include "platform/qt/bar/StatusBarChoice.h"
#include "platform/qt/desktop/DesktopColors.h"
#include "platform/qt/session/Session.h"
#include "platform/qt/session/SessionBus.h"
#include "platform/qt/tray/NotifierWatcher.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

class NotifierStatusBar;
class StripStatusBar;

/// The user's choices, as they are stored under "statusBar.backend" and "statusBar.ink".
struct StatusBarPreferences {
    BackendPreference backend = BackendPreference::automatic;
    InkPreference ink = InkPreference::automatic;
    friend bool operator==(const StatusBarPreferences&, const StatusBarPreferences&) = default;
};

/// Shows the items where this desktop shows them best: in its tray or in a strip of our own. Follows tray
/// hosts that come and go, without a restart, and then shows the last items and images at once in the new
/// place.
class SwitchingStatusBar final : public StatusBar {
public:
    /// `processName` tells which host it is that owns the tray.
    SwitchingStatusBar(RunLoop& loop, const Session& session, const StatusBarPreferences& preferences,
                       SessionBus bus = SessionBus(),
                       NotifierWatcher::ProcessName processName = NotifierWatcher::nameFromSystem);
    ~SwitchingStatusBar() override;

    static constexpr double kFoundSeconds =
        0.5;  ///< From a host's coming to the choice: it may still start up.
    static constexpr double kLostSeconds = 2.0;  ///< From its going: it may be restarting.
    static constexpr double kAnswerSeconds =
        1.0;  ///< For the bus to say whether there is a host at the start.

    void setPreferences(const StatusBarPreferences& preferences);

    StatusBarPlace place() const { return m_place; }
    /// The colours of the desktop, which the rest of the interface follows too.
    DesktopColors& colors() { return m_colors; }
    /// Null unless the items are in this place.
    const StripStatusBar* strip() const { return m_strip; }
    const NotifierStatusBar* tray() const { return m_tray; }

    Appearance appearance() const override;
    void setItems(const std::vector<StatusItem>& items) override;
    void setImage(const std::string& id, const ItemImage& image) override;
    std::optional<Anchor> placeOf(const std::string& id) const override {
        return m_backend ? m_backend->placeOf(id) : std::nullopt;
    }
    /// True also until the first choice is made.
    bool isVisible() const override { return !m_hasChosen || m_place != StatusBarPlace::nowhere; }

private:
    void hostChanged();
    void chooseAfter(double seconds);
    void choose();
    void moveTo(StatusBarPlace place);
    void followBackend();
    void applyShade();

    RunLoop& m_loop;
    Session m_session;
    StatusBarPreferences m_preferences;
    SessionBus m_bus;
    NotifierWatcher m_watcher;
    DesktopColors m_colors;
    std::vector<StatusItem> m_items;
    std::map<std::string, ItemImage> m_images;

    bool m_hasChosen = false;
    StatusBarPlace m_place = StatusBarPlace::nowhere;
    std::optional<NotifierWatcher::Host> m_host;  // The one that the items are registered with.
    std::unique_ptr<StatusBar> m_backend;
    StripStatusBar* m_strip = nullptr;
    NotifierStatusBar* m_tray = nullptr;

    Subscription m_choice;
    Subscription m_trayRest;  // Runs for a while after the items left the tray.
    std::vector<Subscription> m_backendSubscriptions;
    std::vector<Subscription> m_subscriptions;
};

}  // namespace velmora
