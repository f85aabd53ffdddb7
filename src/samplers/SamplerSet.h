#pragma once

#include "platform/Platform.h"
#include "samplers/BatterySampler.h"
#include "samplers/CPUSampler.h"
#include "samplers/DiskSampler.h"
#include "samplers/FanSampler.h"
#include "samplers/GPUSampler.h"
#include "samplers/LatencyProbes.h"
#include "samplers/MemorySampler.h"
#include "samplers/NetworkInfoSampler.h"
#include "samplers/NetworkSampler.h"
#include "samplers/ProcessFootprintSampler.h"
#include "samplers/Samplers.h"
#include "samplers/TemperatureSampler.h"
#include "samplers/VolumeIOSampler.h"

namespace velmora {

/// Owns one reader per kind of figure over the sources of a platform, which must outlive it.
class SamplerSet {
public:
    explicit SamplerSet(Platform& platform);
    SamplerSet(const SamplerSet&) = delete;
    SamplerSet& operator=(const SamplerSet&) = delete;

    /// For the engine; valid as long as this set. Its latency probes are null where the bundle names no
    /// address to probe.
    Samplers view();

private:
    CPUSampler m_cpu;
    GPUSampler m_gpu;
    MemorySampler m_memory;
    ProcessFootprintSampler m_processes;
    DiskSampler m_disk;
    VolumeIOSampler m_volumeIO;
    NetworkSampler m_network;
    NetworkInfoSampler m_networkInfo;
    LatencyProbes m_latency;
    TemperatureSampler m_temperature;
    FanSampler m_fan;
    BatterySampler m_battery;
};

}  // namespace velmora
