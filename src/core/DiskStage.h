#pragma once

#include "base/Date.h"
#include "samplers/Samplers.h"

namespace velmora {

class DailyCounters;

/// Makes the disks' record: throughput, series, the day's traffic, volumes.
class DiskStage {
public:
    DiskStage(DiskSampling& disk, VolumeIOSampling& volumeIO, DailyCounters& daily)
        : m_disk(disk), m_volumeIO(volumeIO), m_daily(daily) {}

    void sample(Date now, double elapsed, DiskStats& stats);

private:
    DiskSampling& m_disk;
    VolumeIOSampling& m_volumeIO;
    DailyCounters& m_daily;
    Date m_longSampledAt = Date::distantPast();
    Date m_volumesRefreshedAt = Date::distantPast();
};

}  // namespace velmora
