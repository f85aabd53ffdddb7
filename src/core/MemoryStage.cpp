#include "core/MemoryStage.h"

#include <cstdint>
#include <utility>

namespace velmora {
namespace {

/// Also the pace of the walk over all processes, which is too dear for every sample.
constexpr double kLongPeriod = 10.0;
constexpr int kTopProcesses = 8;

double fractionOf(std::uint64_t part, std::uint64_t total) {
    return total == 0 ? 0 : static_cast<double>(part) / static_cast<double>(total);
}

}  // namespace

void MemoryStage::sample(Date now, double elapsed, MemoryStats& stats) {
    m_memory.sample(elapsed, stats);
    const double used = fractionOf(stats.used, stats.total);
    stats.history.append(used);
    stats.pressureHistory.append(stats.pressure);
    const bool isLongDue = now - m_longSampledAt >= kLongPeriod;
    if (isLongDue) {
        m_longSampledAt = now;
        stats.usedLong.append(used);
        stats.appLong.append(fractionOf(stats.app, stats.total));
    }
    // With very many processes the first list comes after its question; the next ones are in time.
    if (isLongDue || m_processes.hasLateAnswer()) takeProcesses(stats);
}

void MemoryStage::takeProcesses(MemoryStats& stats) {
    MemoryTop heaviest = m_processes.memoryFootprintTop(kTopProcesses);
    stats.topProcs = std::move(heaviest.top);
    stats.topProcsTotal = heaviest.total;
    stats.topProcsSumGB = heaviest.sumGB;
}

}  // namespace velmora
