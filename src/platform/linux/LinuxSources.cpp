#include "platform/linux/LinuxSources.h"

#include "platform/Platform.h"
#include "platform/linux/desktop/LinuxTextOrder.h"
#include "platform/linux/disk/LinuxBlockDevices.h"
#include "platform/linux/disk/LinuxDiskPlaces.h"
#include "platform/linux/disk/LinuxVolumes.h"
#include "platform/linux/files/StatFile.h"
#include "platform/linux/graphics/LinuxAcceleratorSource.h"
#include "platform/linux/loop/ThreadWorkQueue.h"
#include "platform/linux/memory/LinuxMemorySource.h"
#include "platform/linux/network/LinuxConnectionProbe.h"
#include "platform/linux/network/LinuxEchoSockets.h"
#include "platform/linux/network/LinuxInterfaceAddressSource.h"
#include "platform/linux/network/LinuxInterfaceCounterSource.h"
#include "platform/linux/network/LinuxLinkTable.h"
#include "platform/linux/network/LinuxNetworkConfiguration.h"
#include "platform/linux/network/LinuxProxySettings.h"
#include "platform/linux/network/LinuxWifiSource.h"
#include "platform/linux/power/LinuxBatterySource.h"
#include "platform/linux/processes/LinuxProcessCounterSource.h"
#include "platform/linux/processes/LinuxProcessFootprintSource.h"
#include "platform/linux/processes/LinuxProcessLister.h"
#include "platform/linux/processor/CoreClassification.h"
#include "platform/linux/processor/LinuxBootTimeSource.h"
#include "platform/linux/processor/LinuxLoadAverageSource.h"
#include "platform/linux/processor/LinuxPerformanceLevelSource.h"
#include "platform/linux/processor/LinuxProcessorTicksSource.h"
#include "platform/linux/processor/LinuxTaskCountSource.h"
#include "platform/linux/sensors/LinuxFanSource.h"
#include "platform/linux/sensors/LinuxThermalSensorSource.h"
#include "platform/linux/sensors/SlowSensorReading.h"
#include "platform/linux/traffic/LinuxOrphanSource.h"
#include "platform/linux/traffic/LinuxToolLauncher.h"

#include <memory>

namespace velmora {

namespace {

void addProcessorAndMemory(Platform& platform, const SystemRoot& root) {
    const CoreClassification classification = classifyCores(root);
    const auto statFile = std::make_shared<StatFile>(root);
    platform.processorTicks =
        std::make_unique<LinuxProcessorTicksSource>(statFile, classification.efficiencyCpus);
    platform.bootTime = std::make_unique<LinuxBootTimeSource>(statFile);
    platform.loadAverage = std::make_unique<LinuxLoadAverageSource>(root);
    platform.taskCount = std::make_unique<LinuxTaskCountSource>(root);
    platform.performanceLevels = std::make_unique<LinuxPerformanceLevelSource>(classification);
    platform.accelerators =
        std::make_unique<LinuxAcceleratorSource>(root, *platform.workQueue, *platform.runLoop);
    platform.memory = std::make_unique<LinuxMemorySource>(root);
}

void addProcesses(Platform& platform, const SystemRoot& root) {
    platform.processFootprints = std::make_shared<LinuxProcessFootprintSource>(root);
    platform.orphans = std::make_unique<LinuxOrphanSource>(root);
    platform.toolLauncher = std::make_unique<LinuxToolLauncher>(*platform.runLoop);
    platform.processCounters = std::make_shared<LinuxProcessCounterSource>(root);
    platform.processLister = std::make_unique<LinuxProcessLister>(root, *platform.monotonicClock,
                                                                  *platform.walkWorker, *platform.runLoop);
}

void addDisks(Platform& platform, const SystemRoot& root) {
    platform.textOrder = std::make_unique<LinuxTextOrder>();
    platform.blockDevices = std::make_unique<LinuxBlockDevices>(root);
    platform.volumes = std::make_unique<LinuxVolumes>(root);
    platform.diskPlaces = std::make_unique<LinuxDiskPlaces>(root);
}

void addNetwork(Platform& platform, const SystemRoot& root) {
    const auto links = std::make_shared<LinuxLinkTable>(root);
    platform.interfaceCounters = std::make_unique<LinuxInterfaceCounterSource>(links);
    platform.interfaceAddresses = std::make_unique<LinuxInterfaceAddressSource>(links);
    platform.networkConfiguration =
        std::make_unique<LinuxNetworkConfiguration>(links, *platform.upstreamNameServers);
    platform.proxySettings = std::make_unique<LinuxProxySettings>();
    platform.wifi = std::make_unique<LinuxWifiSource>(links, *platform.wifiWorker, *platform.monotonicClock);
    platform.echoSockets = std::make_unique<LinuxEchoSockets>();
    platform.connectionProbe = std::make_unique<LinuxConnectionProbe>();
}

void addSensorsAndBattery(Platform& platform, const SystemRoot& root) {
    const auto slow =
        makeSlowSensorReading(root, *platform.workQueue, *platform.runLoop, *platform.monotonicClock);
    platform.thermalSensors =
        std::make_unique<LinuxThermalSensorSource>(root, slow, *platform.monotonicClock);
    platform.fans = std::make_unique<LinuxFanSource>(slow);
    platform.battery = std::make_unique<LinuxBatterySource>(root, *platform.workQueue, *platform.runLoop,
                                                            *platform.monotonicClock, *platform.powerDevices,
                                                            *platform.powerProfiles);
}

}  // namespace

void addLinuxWorkers(Platform& platform) {
    platform.workQueue = std::make_unique<ThreadWorkQueue>();
    platform.wifiWorker = std::make_unique<ThreadWorkQueue>("velmora-wifi");
    platform.probeWorker = std::make_unique<ThreadWorkQueue>("net.ping");
    platform.walkWorker = std::make_unique<ThreadWorkQueue>("velmora-walk");
}

void addLinuxSources(Platform& platform, const SystemRoot& root) {
    addProcessorAndMemory(platform, root);
    addProcesses(platform, root);
    addDisks(platform, root);
    addNetwork(platform, root);
    addSensorsAndBattery(platform, root);
}

}  // namespace velmora
