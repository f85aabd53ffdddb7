#include "platform/null/NullPlatform.h"

#include "platform/null/MemoryDefaults.h"
#include "platform/null/NullBatterySource.h"
#include "platform/null/NullBundle.h"
#include "platform/null/NullDiskSources.h"
#include "platform/null/NullDisplay.h"
#include "platform/null/NullFrameworkLanguage.h"
#include "platform/null/NullImproveEvents.h"
#include "platform/null/NullLoginItem.h"
#include "platform/null/NullMemorySource.h"
#include "platform/null/NullNetworkSources.h"
#include "platform/null/NullPowerServices.h"
#include "platform/null/NullPreferredLanguages.h"
#include "platform/null/NullProcessIconSource.h"
#include "platform/null/NullProcessMeter.h"
#include "platform/null/NullProcessSources.h"
#include "platform/null/NullProcessorSources.h"
#include "platform/null/NullSensorSources.h"
#include "platform/null/NullShortcutTargets.h"
#include "platform/null/NullStatusBar.h"
#include "platform/null/NullSystemLog.h"
#include "platform/null/NullTextOrder.h"
#include "platform/null/NullWindowBlur.h"
#include "platform/null/NullWorkQueue.h"
#include "platform/null/NullWorkspace.h"

#include <utility>

namespace velmora {

Platform nullPlatform(std::unique_ptr<Clock> clock, std::unique_ptr<RunLoop> runLoop) {
    Platform platform;
    platform.clock = std::move(clock);
    platform.monotonicClock = std::make_unique<NullMonotonicClock>();
    platform.systemLog = std::make_unique<NullSystemLog>();
    platform.runLoop = std::move(runLoop);
    platform.workQueue = std::make_unique<NullWorkQueue>();
    platform.bundle = std::make_unique<NullBundle>();
    platform.defaults = std::make_unique<MemoryDefaults>();
    platform.preferredLanguages = std::make_unique<NullPreferredLanguages>();
    platform.frameworkLanguage = std::make_unique<NullFrameworkLanguage>();
    platform.loginItem = std::make_unique<NullLoginItem>();
    platform.workspace = std::make_unique<NullWorkspace>();
    platform.display = std::make_unique<NullDisplay>();
    platform.processMeter = std::make_unique<NullProcessMeter>();
    platform.statusBar = std::make_unique<NullStatusBar>();
    platform.windowBlur = std::make_unique<NullWindowBlur>();
    platform.improveEvents = std::make_unique<NullImproveEvents>();
    platform.shortcutTargets = std::make_unique<NullShortcutTargets>();
    platform.processIcons = std::make_unique<NullProcessIconSource>();
    platform.processorTicks = std::make_unique<NullProcessorTicksSource>();
    platform.loadAverage = std::make_unique<NullLoadAverageSource>();
    platform.bootTime = std::make_unique<NullBootTimeSource>();
    platform.taskCount = std::make_unique<NullTaskCountSource>();
    platform.performanceLevels = std::make_unique<NullPerformanceLevelSource>();
    platform.accelerators = std::make_unique<NullAcceleratorSource>();
    platform.memory = std::make_unique<NullMemorySource>();
    platform.processFootprints = std::make_shared<NullProcessFootprintSource>();
    platform.processCounters = std::make_shared<NullProcessCounterSource>();
    platform.processLister = std::make_unique<NullProcessLister>(*platform.runLoop);
    platform.orphans = std::make_unique<NullOrphanSource>();
    platform.toolLauncher = std::make_unique<NullToolLauncher>();
    platform.textOrder = std::make_unique<NullTextOrder>();
    platform.blockDevices = std::make_unique<NullBlockDeviceSource>();
    platform.volumes = std::make_unique<NullVolumeSource>();
    platform.diskPlaces = std::make_unique<NullDiskPlaceSource>();
    platform.upstreamNameServers = std::make_unique<NullUpstreamNameServers>();
    platform.interfaceCounters = std::make_unique<NullInterfaceCounterSource>();
    platform.interfaceAddresses = std::make_unique<NullInterfaceAddressSource>();
    platform.networkConfiguration = std::make_unique<NullNetworkConfigurationSource>();
    platform.proxySettings = std::make_unique<NullProxySettingsSource>();
    platform.wifi = std::make_unique<NullWifiSource>();
    platform.location = std::make_unique<NullLocationAuthorization>();
    platform.echoSockets = std::make_unique<NullEchoSocketFactory>();
    platform.connectionProbe = std::make_unique<NullConnectionProbe>();
    platform.powerDevices = std::make_unique<NullPowerDeviceService>();
    platform.powerProfiles = std::make_unique<NullPowerProfileService>();
    platform.battery = std::make_unique<NullBatterySource>();
    platform.thermalSensors = std::make_unique<NullThermalSensorSource>();
    platform.fans = std::make_unique<NullFanSource>();
    platform.wifiWorker = std::make_unique<NullWorkQueue>();
    platform.probeWorker = std::make_unique<NullWorkQueue>();
    platform.walkWorker = std::make_unique<NullWorkQueue>();
    return platform;
}

}  // namespace velmora
