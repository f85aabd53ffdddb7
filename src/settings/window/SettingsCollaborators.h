#pragma once

#include "base/Published.h"
#include "core/SettingsRouter.h"
#include "look/Scheme.h"
#include "model/StatsSnapshot.h"

#include <functional>
#include <vector>

class QWidget;

namespace velmora {

class AppSettings;
class Bundle;
class L10n;
class RunLoop;
class WindowBlur;

/// A tab whose content the window does not make itself, which is every one but the modules. `make` is called
/// each time the tab is shown, and the parent owns what it gives.
struct SettingsPage {
    SettingsTab tab;
    std::function<QWidget*(QWidget* parent)> make;
};

/// What the settings window stands on. Everything outlives it.
struct SettingsCollaborators {
    SettingsRouter& router;
    AppSettings& settings;
    const L10n& l10n;
    const Published<StatsSnapshot>& snapshot;
    const Published<Scheme>& scheme;
    const Bundle& bundle;
    RunLoop& runLoop;
    WindowBlur& blur;
    /// A tab without a page is left out of the sidebar.
    std::vector<SettingsPage> pages;

    /// The page's maker; null for a tab that has none, and for the modules.
    const SettingsPage* page(SettingsTab tab) const {
        for (const SettingsPage& candidate : pages) {
            if (candidate.tab == tab) return &candidate;
        }
        return nullptr;
    }
    bool hasPage(SettingsTab tab) const { return tab == SettingsTab::modules || page(tab) != nullptr; }
};

}  // namespace velmora
