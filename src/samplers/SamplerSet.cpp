#include "samplers/SamplerSet.h"

namespace velmora {

SamplerSet::SamplerSet(Platform& platform)
    : m_cpu(*platform.processorTicks, *platform.loadAverage, *platform.bootTime, *platform.taskCount,
            *platform.performanceLevels, *platform.clock),
      m_gpu(*platform.accelerators),
      m_memory(*platform.memory),
      m_processes(platform.processFootprints, *platform.monotonicClock, *platform.walkWorker,
                  *platform.runLoop),
      m_disk(*platform.blockDevices, *platform.volumes, *platform.textOrder),
      m_volumeIO(*platform.blockDevices),
      m_network(*platform.interfaceCounters, *platform.interfaceAddresses),
      m_networkInfo(*platform.networkConfiguration, *platform.interfaceAddresses, *platform.wifi,
                    *platform.proxySettings, *platform.location),
      m_latency(platform.bundle->information("VMLatencyProbeAddress").value_or(""), *platform.probeWorker,
                *platform.echoSockets, *platform.connectionProbe, *platform.monotonicClock),
      m_temperature(*platform.thermalSensors),
      m_fan(*platform.fans),
      m_battery(*platform.battery, *platform.clock) {}

Samplers SamplerSet::view() {
    return {.cpu = m_cpu,
            .gpu = m_gpu,
            .memory = m_memory,
            .processes = m_processes,
            .disk = m_disk,
            .volumeIO = m_volumeIO,
            .network = m_network,
            .networkInfo = m_networkInfo,
            .temperature = m_temperature,
            .fan = m_fan,
            .battery = m_battery,
            .icmpPing = m_latency.icmpProbe(),
            .measurePing = m_latency.connectionProbe()};
}

}  // namespace velmora
