#include "platform/linux/desktop/KnownTools.h"

#include <array>

namespace velmora {
namespace {

constexpr std::array<KnownTool, 10> kSystemMonitors = {{
    {.id = "gnome-system-monitor", .desktop = "GNOME"},
    {.id = "gnome-system-monitor-kde"},
    {.id = "org.kde.plasma-systemmonitor", .desktop = "KDE"},
    {.id = "xfce4-taskmanager", .desktop = "XFCE"},
    {.id = "mate-system-monitor", .desktop = "MATE"},
    {.id = "qps", .desktop = "LXQt"},
    {.id = "org.gnome.Usage", .desktop = "GNOME"},
    {.id = "org.gnome.SystemMonitor", .desktop = "GNOME"},
    {.id = "net.nokyan.Resources", .desktop = "GNOME"},
    {.id = "lxtask", .desktop = "LXDE"},
}};

constexpr std::array<KnownTool, 8> kTerminals = {{
    {.id = "xdg-terminal-exec"},
    {.id = "org.gnome.Console", .desktop = "GNOME"},
    {.id = "org.gnome.Terminal", .desktop = "GNOME"},
    {.id = "org.kde.konsole", .desktop = "KDE"},
    {.id = "xfce4-terminal", .desktop = "XFCE"},
    {.id = "qterminal", .desktop = "LXQt"},
    {.id = "mate-terminal", .desktop = "MATE"},
    {.id = "lxterminal", .desktop = "LXDE"},
}};

constexpr std::array<KnownTool, 4> kLogs = {{
    {.id = "org.gnome.Logs", .desktop = "GNOME"},
    {.id = "org.kde.ksystemlog", .desktop = "KDE"},
    {.id = "org.kde.kjournaldbrowser", .desktop = "KDE"},
    {.id = "mate-system-log", .desktop = "MATE"},
}};

constexpr std::array<KnownTool, 3> kDisks = {{
    {.id = "org.gnome.DiskUtility", .desktop = "GNOME"},
    {.id = "org.kde.partitionmanager", .desktop = "KDE"},
    {.id = "gparted"},
}};

constexpr std::string_view kGnomeSettings = "org.gnome.Settings";
constexpr std::string_view kFormerGnomeSettings = "gnome-control-center";
constexpr std::string_view kPlasmaSettings = "systemsettings";
constexpr std::string_view kFormerPlasmaSettings = "org.kde.systemsettings";
constexpr std::string_view kBudgieSettings = "org.buddiesofbudgie.ControlCenter";
constexpr std::string_view kFormerBudgieSettings = "budgie-control-center";

constexpr std::array<KnownTool, 5> kNetworkSettings = {{
    {.id = "gnome-network-panel",
     .desktop = "GNOME",
     .application = kGnomeSettings,
     .formerApplication = kFormerGnomeSettings},
    {.id = "kcm_networkmanagement",
     .desktop = "KDE",
     .application = kPlasmaSettings,
     .formerApplication = kFormerPlasmaSettings},
    {.id = "cinnamon-network-panel", .desktop = "X-Cinnamon", .application = "cinnamon-settings"},
    {.id = "budgie-network-panel",
     .desktop = "Budgie",
     .application = kBudgieSettings,
     .formerApplication = kFormerBudgieSettings},
    {.id = "nm-connection-editor"},
}};

constexpr std::array<KnownTool, 7> kPowerSettings = {{
    {.id = "gnome-power-panel",
     .desktop = "GNOME",
     .application = kGnomeSettings,
     .formerApplication = kFormerGnomeSettings},
    {.id = "kcm_powerdevilprofilesconfig",
     .desktop = "KDE",
     .application = kPlasmaSettings,
     .formerApplication = kFormerPlasmaSettings},
    {.id = "xfce4-power-manager-settings", .desktop = "XFCE"},
    {.id = "mate-power-preferences", .desktop = "MATE"},
    {.id = "lxqt-config-powermanagement", .desktop = "LXQt"},
    {.id = "cinnamon-settings-power", .desktop = "X-Cinnamon", .application = "cinnamon-settings"},
    {.id = "budgie-power-panel",
     .desktop = "Budgie",
     .application = kBudgieSettings,
     .formerApplication = kFormerBudgieSettings},
}};

/// What frees space, not what shows who uses it.
constexpr std::array<KnownTool, 6> kCleaners = {{
    {.id = "org.bleachbit.BleachBit"},
    {.id = "bleachbit"},
    {.id = "stacer"},
    {.id = "ubuntu-cleaner"},
    {.id = "org.kde.sweeper"},
    {.id = "com.github.qarmin.czkawka"},
}};

constexpr std::array<std::string_view, 2> kMonitorCategories = {"System", "Monitor"};
constexpr std::array<std::string_view, 1> kTerminalCategories = {"TerminalEmulator"};

}  // namespace

std::span<const KnownTool> knownTools(ShortcutKind kind) {
    switch (kind) {
        case ShortcutKind::systemMonitor:
            return kSystemMonitors;
        case ShortcutKind::terminal:
            return kTerminals;
        case ShortcutKind::logs:
            return kLogs;
        case ShortcutKind::disks:
            return kDisks;
        case ShortcutKind::networkSettings:
            return kNetworkSettings;
        case ShortcutKind::powerSettings:
            return kPowerSettings;
        case ShortcutKind::cleaner:
            return kCleaners;
    }
    return {};
}

std::span<const std::string_view> categoriesOf(ShortcutKind kind) {
    if (kind == ShortcutKind::systemMonitor) return kMonitorCategories;
    if (kind == ShortcutKind::terminal) return kTerminalCategories;
    return {};
}

bool isSettingsPane(ShortcutKind kind) {
    return kind == ShortcutKind::networkSettings || kind == ShortcutKind::powerSettings;
}

}  // namespace velmora
