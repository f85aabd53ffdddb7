#pragma once

#include "platform/BatterySource.h"
#include "platform/BlockDeviceSource.h"
#include "platform/Bundle.h"
#include "platform/Clock.h"
#include "platform/Defaults.h"
#include "platform/DiskPlaceSource.h"
#include "platform/Display.h"
#include "platform/FanSource.h"
#include "platform/FrameworkLanguage.h"
#include "platform/ImproveEvents.h"
#include "platform/InterfaceAddressSource.h"
#include "platform/InterfaceCounterSource.h"
#include "platform/LatencyPorts.h"
#include "platform/LoginItem.h"
#include "platform/MemorySources.h"
#include "platform/MonotonicClock.h"
#include "platform/NetworkConfigurationSource.h"
#include "platform/OrphanSource.h"
#include "platform/PowerDeviceService.h"
#include "platform/PowerProfileService.h"
#include "platform/PreferredLanguages.h"
#include "platform/ProcessCounterSource.h"
#include "platform/ProcessFootprintSource.h"
#include "platform/ProcessIconSource.h"
#include "platform/ProcessLister.h"
#include "platform/ProcessMeter.h"
#include "platform/ProcessorSources.h"
#include "platform/RunLoop.h"
#include "platform/ShortcutTargets.h"
#include "platform/StatusBar.h"
#include "platform/SystemLog.h"
#include "platform/TextOrder.h"
#include "platform/ThermalSensorSource.h"
#include "platform/ToolLauncher.h"
#include "platform/UpstreamNameServers.h"
#include "platform/VolumeSource.h"
#include "platform/WifiSource.h"
#include "platform/WindowBlur.h"
#include "platform/WorkQueue.h"
#include "platform/Workspace.h"

#include <memory>

namespace velmora {

/// One adapter of each port. It has no behaviour: the composition root fills it and hands the parts on.
/// Members are destroyed from the last to the first, so what others use stands first.
struct Platform {
    std::unique_ptr<Clock> clock;
    std::unique_ptr<MonotonicClock> monotonicClock;
    std::unique_ptr<SystemLog> systemLog;
    std::unique_ptr<RunLoop> runLoop;
    std::unique_ptr<WorkQueue> workQueue;  ///< Slow reads of sources.
    std::unique_ptr<Bundle> bundle;
    std::unique_ptr<Defaults> defaults;
    std::unique_ptr<PreferredLanguages> preferredLanguages;
    std::unique_ptr<FrameworkLanguage> frameworkLanguage;
    std::unique_ptr<LoginItem> loginItem;
    std::unique_ptr<Workspace> workspace;
    std::unique_ptr<Display> display;
    std::unique_ptr<ProcessMeter> processMeter;
    std::unique_ptr<StatusBar> statusBar;
    std::unique_ptr<WindowBlur> windowBlur;
    std::unique_ptr<ImproveEvents> improveEvents;

    std::unique_ptr<ShortcutTargets> shortcutTargets;
    std::unique_ptr<ProcessIconSource> processIcons;

    std::unique_ptr<ProcessorTicksSource> processorTicks;
    std::unique_ptr<LoadAverageSource> loadAverage;
    std::unique_ptr<BootTimeSource> bootTime;
    std::unique_ptr<TaskCountSource> taskCount;
    std::unique_ptr<PerformanceLevelSource> performanceLevels;
    std::unique_ptr<AcceleratorSource> accelerators;
    std::unique_ptr<MemorySource> memory;
    std::shared_ptr<ProcessFootprintSource> processFootprints;
    std::shared_ptr<ProcessCounterSource> processCounters;
    std::unique_ptr<OrphanSource> orphans;
    std::unique_ptr<ToolLauncher> toolLauncher;
    std::unique_ptr<ProcessLister> processLister;

    std::unique_ptr<TextOrder> textOrder;
    std::unique_ptr<BlockDeviceSource> blockDevices;
    std::unique_ptr<VolumeSource> volumes;
    std::unique_ptr<DiskPlaceSource> diskPlaces;

    std::unique_ptr<UpstreamNameServers> upstreamNameServers;
    std::unique_ptr<InterfaceCounterSource> interfaceCounters;
    std::unique_ptr<InterfaceAddressSource> interfaceAddresses;
    std::unique_ptr<NetworkConfigurationSource> networkConfiguration;
    std::unique_ptr<ProxySettingsSource> proxySettings;
    std::unique_ptr<WifiSource> wifi;
    std::unique_ptr<LocationAuthorization> location;
    std::unique_ptr<EchoSocketFactory> echoSockets;
    std::unique_ptr<ConnectionProbe> connectionProbe;

    std::unique_ptr<PowerDeviceService> powerDevices;
    std::unique_ptr<PowerProfileService> powerProfiles;
    std::unique_ptr<BatterySource> battery;
    std::unique_ptr<ThermalSensorSource> thermalSensors;
    std::unique_ptr<FanSource> fans;

    // Workers of their own, for what may wait long. They end before what their work looks at.
    std::unique_ptr<WorkQueue> wifiWorker;
    std::unique_ptr<WorkQueue> probeWorker;
    std::unique_ptr<WorkQueue> walkWorker;  ///< Walks over processes and folders.
};

}  // namespace velmora
