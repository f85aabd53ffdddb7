#pragma once

#include "platform/ProcessorSources.h"
#include "samplers/CoreTopology.h"
#include "samplers/Samplers.h"

#include <vector>

namespace velmora {

class Clock;

/// Turns the cores' cumulative ticks into busy fractions between two samples. The first sample, and one on
/// which the number of cores differs from the last, gives zeros; an unreadable one gives zeros and no cores,
/// and the next good one then spans the gap.
class CPUSampler final : public CPUSampling {
public:
    CPUSampler(ProcessorTicksSource& ticks, LoadAverageSource& load, BootTimeSource& boot,
               TaskCountSource& tasks, PerformanceLevelSource& levels, const Clock& clock)
        : m_ticksSource(ticks),
          m_loadSource(load),
          m_bootSource(boot),
          m_taskSource(tasks),
          m_topology(levels),
          m_clock(clock) {}

    void sample(CPUFigures& figures) override;
    LoadAverage loadAverage() override { return m_loadSource.read(); }
    /// Follows the wall clock: setting the clock moves it.
    double uptime() override;
    std::optional<TaskThreadCounts> taskThreadCounts() override { return m_taskSource.read(); }
    int efficiencyCoreCount() override { return m_topology.efficiencyCoreCount(); }

private:
    ProcessorTicksSource& m_ticksSource;
    LoadAverageSource& m_loadSource;
    BootTimeSource& m_bootSource;
    TaskCountSource& m_taskSource;
    CoreTopology m_topology;
    const Clock& m_clock;

    std::vector<CoreTicks> m_previousTicks;  ///< Of the last good read; empty until there was one.
    std::vector<CoreTicks> m_currentTicks;   ///< Changes places with it, so that a sample allocates nothing.
};

}  // namespace velmora
