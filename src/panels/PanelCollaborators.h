#pragma once

#include "base/Published.h"
#include "core/SettingsRouter.h"

#include <functional>
#include <memory>

namespace velmora {

class AppSettings;
class DiskProcessSampler;
class EnergyProcessSampler;
class L10n;
class NetTopSampler;
class ProcessLister;
class RunLoop;
class ShortcutTargets;
struct StatsSnapshot;

/// What the panels are made over. Everything that is referred to outlives every panel; each panel that lists
/// processes by traffic or power makes a sampler of its own, which goes with it.
struct PanelCollaborators {
    const Published<StatsSnapshot>& snapshot;
    AppSettings& settings;
    const L10n& l10n;
    RunLoop& runLoop;
    ShortcutTargets& shortcutTargets;
    SettingsRouter& router;
    ShowSettings showSettings;
    ProcessLister& processLister;
    std::function<std::unique_ptr<DiskProcessSampler>()> makeDiskProcessSampler;
    std::function<std::unique_ptr<EnergyProcessSampler>()> makeEnergyProcessSampler;
    std::function<std::unique_ptr<NetTopSampler>()> makeNetTopSampler;
};

}  // namespace velmora
