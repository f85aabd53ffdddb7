#pragma once

#include "samplers/RusageInterval.h"
#include "samplers/TopProcess.h"

#include <functional>
#include <vector>

namespace velmora {

/// The processes that read and write the most. One instance for as long as its list is shown, one call at a
/// time; rates are over the time since the last call.
class DiskProcessSampler {
public:
    DiskProcessSampler(std::shared_ptr<ProcessCounterSource> source, const Clock& clock, WorkQueue& workQueue,
                       RunLoop& runLoop)
        : m_interval(std::move(source), clock, workQueue, runLoop) {}

    using Completion = std::function<void(std::vector<TopIOProcess>)>;
    /// Calls back on the main thread; not at all once this object is gone.
    void sample(int limit, Completion completion);

    /// The list of an interval, busiest first.
    static std::vector<TopIOProcess> ranking(const RusageInterval::Interval& interval, int limit);

private:
    RusageInterval m_interval;
};

}  // namespace velmora
