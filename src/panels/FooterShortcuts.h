#pragma once

#include "core/SettingsRouter.h"
#include "panels/kit/Views.h"
#include "platform/ShortcutTargets.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmora {

class L10n;

/// Decides which buttons stand below a panel: the system's tools that fit the module and are installed here,
/// and last, always, the program's own settings.
class FooterShortcuts {
public:
    /// The targets and the router outlive every shortcut.
    FooterShortcuts(ShortcutTargets& targets, SettingsRouter& router, ShowSettings showSettings,
                    const L10n& l10n)
        : m_targets(targets), m_router(router), m_showSettings(std::move(showSettings)), m_l10n(l10n) {}

    static constexpr std::string_view kOwnSettingsId = "velmora.settings";

    /// Every action calls `dismiss` first, which may destroy the panel together with the shortcut.
    std::vector<FooterShortcut> forModule(StatsModule module, const std::function<void()>& dismiss) const;

    /// A tool; nothing where none is installed.
    std::optional<FooterShortcut> app(ShortcutKind kind, std::string symbol) const;
    /// The page of the system's settings; nothing where there is none.
    std::optional<FooterShortcut> settingsPane(ShortcutKind kind, std::string symbol) const;
    /// Shows the settings window on the module's page.
    FooterShortcut ownSettings(StatsModule module) const;

private:
    ShortcutTargets& m_targets;
    SettingsRouter& m_router;
    ShowSettings m_showSettings;
    const L10n& m_l10n;
};

}  // namespace velmora
