#include "core/DiskStage.h"

#include "core/DailyCounters.h"
#include "core/DiskVolumeMapping.h"

namespace velmora {
namespace {

constexpr double kLongPeriod = 10.0;
constexpr double kVolumesPeriod = 10.0;

}  // namespace

void DiskStage::sample(Date now, double elapsed, DiskStats& stats) {
    const DiskActivity activity = m_disk.activity(elapsed);
    stats.readPerSec = activity.readPerSec;
    stats.writePerSec = activity.writePerSec;
    stats.iops = activity.iops;
    stats.activityHistory.append(stats.readPerSec + stats.writePerSec);
    stats.readHistory.append(stats.readPerSec);
    stats.writeHistory.append(stats.writePerSec);
    m_daily.countDisk(now, activity.readBytes, activity.writeBytes, stats);
    if (now - m_longSampledAt >= kLongPeriod) {
        m_longSampledAt = now;
        stats.readLong.append(stats.readPerSec);
        stats.writeLong.append(stats.writePerSec);
    }
    if (stats.volumes.empty() || now - m_volumesRefreshedAt > kVolumesPeriod) {
        m_volumesRefreshedAt = now;
        stats.volumes = m_disk.volumes();
    }
    mapThroughput(m_volumeIO.sample(elapsed), stats.volumes);
}

}  // namespace velmora
