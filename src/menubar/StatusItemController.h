#pragma once

#include "base/LifeGuard.h"
#include "base/Published.h"
#include "base/Subscription.h"
#include "core/AppSettings.h"
#include "menubar/PanelHost.h"
#include "model/StatsSnapshot.h"
#include "platform/StatusBar.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

class L10n;
class RunLoop;

/// The program's presence on the status bar: one item per enabled module, or a single fallback item when none
/// is enabled. Keeps their images current, and opens a module's panel at a click. It draws only what a tick
/// updated; a change of settings or of the bar's appearance redraws everything. Main thread only.
class StatusItemController {
public:
    /// What the entries of the fallback's menu do. An entry without an action is left out.
    struct Actions {
        std::function<void()> showSettings;
        std::function<void()> showGuide;
        std::function<void()> checkForUpdates;
        std::function<void()> showAbout;
        std::function<void()> quit;
    };

    StatusItemController(const Published<StatsSnapshot>& snapshot, AppSettings& settings, const L10n& l10n,
                         RunLoop& runLoop, StatusBar& statusBar, PanelHost& panels, Actions actions);
    StatusItemController(const StatusItemController&) = delete;
    StatusItemController& operator=(const StatusItemController&) = delete;
    ~StatusItemController();

    /// Makes the bar's items those of the enabled modules.
    void rebuildItems();
    /// Draws the items of the given modules, or of all, and then also the fallback.
    void refreshImages(const StatsSnapshot& snapshot, const std::optional<ModuleSet>& only);
    void refreshFallbackIcon();

    /// Opens or closes the panel of a module that has an item, as a click on the item does; beside the item
    /// if its place is known, else beside the given one.
    void togglePanel(StatsModule module, const Anchor& otherwise);

    /// Run by the guide entry of the fallback's menu.
    void setOnShowOnboarding(std::function<void()> show) { m_actions.showGuide = std::move(show); }

private:
    void drawModule(StatsModule module, const StatsSnapshot& snapshot,
                    const StatusBar::Appearance& appearance);
    void openItem(const std::string& id, const Anchor& anchor);
    std::vector<StatusMenuEntry> menuOf(const std::string& id) const;
    std::vector<StatusMenuEntry> moduleMenu(StatsModule module) const;
    std::vector<StatusMenuEntry> commonMenu() const;
    void runMenuAction(const std::string& action);

    const Published<StatsSnapshot>& m_snapshot;
    AppSettings& m_settings;
    const L10n& m_l10n;
    RunLoop& m_runLoop;
    StatusBar& m_statusBar;
    PanelHost& m_panels;
    Actions m_actions;

    std::vector<StatsModule> m_items;
    bool m_hasFallback = false;
    std::vector<StatsModule> m_lastEnabled;
    ItemImage m_image;  // Storage that every drawing reuses.

    LifeGuard m_life;
    std::vector<Subscription> m_subscriptions;
};

}  // namespace velmora
