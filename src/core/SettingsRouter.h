#pragma once

#include "base/Published.h"
#include "model/StatsModule.h"

#include <array>
#include <functional>
#include <optional>
#include <string_view>

namespace velmora {

/// The pages of the settings window, in the order of its sidebar.
enum class SettingsTab { general, modules, account, about };

inline constexpr std::array kAllSettingsTabs = {SettingsTab::general, SettingsTab::modules,
                                                SettingsTab::account, SettingsTab::about};

/// "general", "modules", "account", "about"; the string keys of a tab's title and subtitle are "tab." and
/// "sub." followed by it.
std::string_view rawValue(SettingsTab tab);

/// What is selected in the settings window. It outlives the window within a run and is never stored: each
/// launch starts with the modules and the processor.
class SettingsRouter {
public:
    SettingsRouter() = default;
    SettingsRouter(const SettingsRouter&) = delete;
    SettingsRouter& operator=(const SettingsRouter&) = delete;
    static SettingsRouter& shared();

    Published<SettingsTab> selectedTab{SettingsTab::modules};
    Published<StatsModule> selectedModule{StatsModule::cpu};
};

/// Brings the settings window to the front, on the given tab or on the one that is selected.
using ShowSettings = std::function<void(std::optional<SettingsTab> tab)>;

}  // namespace velmora
