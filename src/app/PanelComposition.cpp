#include "app/PanelComposition.h"

#include "platform/Platform.h"
#include "platform/linux/traffic/LinuxToolLauncher.h"
#include "samplers/DiskProcessSampler.h"
#include "samplers/EnergyProcessSampler.h"
#include "samplers/LiveTools.h"
#include "samplers/NetTopSampler.h"

#include <utility>

namespace velmora {

PanelCollaborators panelCollaborators(Platform& platform, const Published<StatsSnapshot>& snapshot,
                                      AppSettings& settings, const L10n& l10n, SettingsRouter& router,
                                      LiveTools& liveTools, ShowSettings showSettings) {
    return {.snapshot = snapshot,
            .settings = settings,
            .l10n = l10n,
            .runLoop = *platform.runLoop,
            .shortcutTargets = *platform.shortcutTargets,
            .router = router,
            .showSettings = std::move(showSettings),
            .processLister = *platform.processLister,
            .makeDiskProcessSampler =
                [&platform] {
                    return std::make_unique<DiskProcessSampler>(platform.processCounters, *platform.clock,
                                                                *platform.walkWorker, *platform.runLoop);
                },
            .makeEnergyProcessSampler =
                [&platform] {
                    return std::make_unique<EnergyProcessSampler>(platform.processCounters, *platform.clock,
                                                                  *platform.walkWorker, *platform.runLoop);
                },
            .makeNetTopSampler =
                [&platform, &liveTools] {
                    const std::string executable = platform.bundle->executablePath().value_or("");
                    return std::make_unique<NetTopSampler>(*platform.toolLauncher, liveTools,
                                                           *platform.runLoop, toolPath(executable, "nettop"));
                }};
}

}  // namespace velmora
