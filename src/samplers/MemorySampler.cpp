#include "samplers/MemorySampler.h"

#include "base/CounterRate.h"
#include "platform/MemorySources.h"

namespace velmora {
namespace {

std::uint64_t lessOrZero(std::uint64_t whole, std::uint64_t part) {
    return whole < part ? 0 : whole - part;
}

void clearInstantFields(MemoryStats& stats) {
    stats.used = stats.app = stats.wired = stats.compressed = stats.cached = stats.free = 0;
    stats.swapUsed = stats.swapTotal = 0;
    stats.pressure = stats.pageInPerSec = stats.pageOutPerSec = 0;
}

/// The share of memory that is not available, as the kernel sees it; the used share where it does not say.
double pressureOf(std::optional<std::int32_t> availableLevel, const MemoryStats& stats) {
    if (availableLevel && *availableLevel >= 0 && *availableLevel <= 100)
        return (100 - *availableLevel) / 100.0;
    if (stats.total == 0) return 0;
    return static_cast<double>(stats.used) / static_cast<double>(stats.total);
}

}  // namespace

MemorySampler::MemorySampler(MemorySource& source) : m_source(source), m_total(source.physicalMemory()) {}

void MemorySampler::sample(double interval, MemoryStats& stats) {
    clearInstantFields(stats);
    stats.total = m_total;
    const auto counters = m_source.counters();
    if (!counters) return;

    const std::uint64_t page = counters->pageSize;
    const std::uint64_t purgeable = counters->purgeableCount * page;
    stats.app = lessOrZero(counters->internalPageCount * page, purgeable);
    stats.wired = counters->wireCount * page;
    stats.compressed = counters->compressorPageCount * page;
    stats.cached = counters->externalPageCount * page + purgeable;
    stats.used = stats.app + stats.wired + stats.compressed;
    stats.free = lessOrZero(m_total, stats.used);

    stats.pressure = pressureOf(m_source.availableLevel(), stats);

    // Each counter may be reset without the other.
    const std::uint64_t pageIns = counters->pageIns * page;
    const std::uint64_t pageOuts = counters->pageOuts * page;
    stats.pageInPerSec = counterRate(m_previousPageIns, pageIns, interval);
    stats.pageOutPerSec = counterRate(m_previousPageOuts, pageOuts, interval);

    if (const auto swap = m_source.swap()) {
        stats.swapUsed = swap->used;
        stats.swapTotal = swap->total;
    }
    m_previousPageIns = pageIns;
    m_previousPageOuts = pageOuts;
}

}  // namespace velmora
