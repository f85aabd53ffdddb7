#include "panels/FooterShortcuts.h"

#include "l10n/L10n.h"

#include <utility>

namespace velmora {

std::vector<FooterShortcut> FooterShortcuts::forModule(StatsModule module,
                                                       const std::function<void()>& dismiss) const {
    std::vector<FooterShortcut> shortcuts;
    const auto add = [&shortcuts](std::optional<FooterShortcut> shortcut) {
        if (shortcut) shortcuts.push_back(std::move(*shortcut));
    };
    switch (module) {
        case StatsModule::cpu:
            add(app(ShortcutKind::systemMonitor, "waveform.path.ecg"));
            add(app(ShortcutKind::terminal, "apple.terminal"));
            add(app(ShortcutKind::logs, "doc.text"));
            break;
        case StatsModule::memory:
        case StatsModule::sensors:
            add(app(ShortcutKind::systemMonitor, "waveform.path.ecg"));
            break;
        case StatsModule::disk:
            add(app(ShortcutKind::disks, "internaldrive"));
            add(app(ShortcutKind::cleaner, "sparkles"));
            break;
        case StatsModule::network:
            add(settingsPane(ShortcutKind::networkSettings, "wifi"));
            add(app(ShortcutKind::systemMonitor, "waveform.path.ecg"));
            break;
        case StatsModule::battery:
            add(settingsPane(ShortcutKind::powerSettings, "battery.100percent.bolt"));
            break;
    }
    add(ownSettings(module));

    for (FooterShortcut& shortcut : shortcuts) {
        shortcut.action = [dismiss, action = std::move(shortcut.action)] {
            // The panel that owns this closure may be gone after the first call.
            const auto close = dismiss;
            const auto act = action;
            if (close) close();
            act();
        };
    }
    return shortcuts;
}

std::optional<FooterShortcut> FooterShortcuts::app(ShortcutKind kind, std::string symbol) const {
    auto target = m_targets.find(kind);
    if (!target) return std::nullopt;
    FooterShortcut shortcut;
    shortcut.id = target->id;
    shortcut.symbol = std::move(symbol);
    shortcut.help = target->name;
    shortcut.action = [&targets = m_targets, target = std::move(*target)] { targets.open(target); };
    return shortcut;
}

std::optional<FooterShortcut> FooterShortcuts::settingsPane(ShortcutKind kind, std::string symbol) const {
    // A page of the settings has a desktop entry of its own here, as a tool has.
    return app(kind, std::move(symbol));
}

FooterShortcut FooterShortcuts::ownSettings(StatsModule module) const {
    FooterShortcut shortcut;
    shortcut.id = kOwnSettingsId;
    shortcut.symbol = "chart.bar.xaxis";
    shortcut.help = m_l10n.string("menu.settings");
    shortcut.accent = true;
    shortcut.action = [&router = m_router, showSettings = m_showSettings, module] {
        router.selectedModule.set(module);
        if (showSettings) showSettings(SettingsTab::modules);
    };
    return shortcut;
}

}  // namespace velmora
