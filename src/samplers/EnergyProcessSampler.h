#pragma once

#include "samplers/RusageInterval.h"
#include "samplers/TopProcess.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace velmora {

/// The processes that use the most energy, in watts. One instance for as long as its list is shown, one call
/// at a time; powers are over the time since the last call.
class EnergyProcessSampler {
public:
    EnergyProcessSampler(std::shared_ptr<ProcessCounterSource> source, const Clock& clock,
                         WorkQueue& workQueue, RunLoop& runLoop);

    /// Whether this machine tells energy by process: found out once. Where it does not, the list stays empty
    /// and no process is looked at.
    bool isSupported();

    using Completion = std::function<void(std::vector<TopProcess>)>;
    /// Calls back on the main thread; not at all once this object is gone.
    void sample(int limit, Completion completion);

    /// The list of an interval, highest power first.
    static std::vector<TopProcess> ranking(const RusageInterval::Interval& interval, int limit);

private:
    std::shared_ptr<ProcessCounterSource> m_source;
    RunLoop& m_runLoop;
    std::optional<bool> m_isSupported;
    RusageInterval m_interval;
    LifeGuard m_life;
};

}  // namespace velmora
