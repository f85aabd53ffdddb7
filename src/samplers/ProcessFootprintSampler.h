#pragma once

#include "base/LifeGuard.h"
#include "base/Subscription.h"
#include "platform/MonotonicClock.h"
#include "platform/ProcessFootprintSource.h"
#include "platform/RunLoop.h"
#include "platform/WorkQueue.h"
#include "samplers/Samplers.h"

#include <cstdint>
#include <limits>
#include <memory>

namespace velmora {

/// The memory list of the engine. The walk over all processes is made at the question as long as it is short.
/// With many processes, and once a walk took more than five milliseconds, all walks run on the work queue,
/// each begun a second before the next question is expected, and a question is answered with the last result.
/// The first question of all finds none, and gets its answer late.
class ProcessFootprintSampler final : public ProcessFootprintSampling {
public:
    /// The source is shared with walks that may outlive this object.
    ProcessFootprintSampler(std::shared_ptr<ProcessFootprintSource> source, const MonotonicClock& clock,
                            WorkQueue& workQueue, RunLoop& runLoop);

    MemoryTop memoryFootprintTop(int limit) override;
    bool hasLateAnswer() const override { return m_hasLateAnswer; }

    static constexpr double kLongestWalkSeconds = 0.005;
    /// A process costs ten microseconds, on a slow machine three times that.
    static constexpr std::int32_t kMostProcessesAtOnce = 150;

private:
    MemoryTop walkNow(int limit);
    /// Has the walk for the next question begun in time for it.
    void planNextWalk(double now, int limit);
    void startWalk(int limit);

    std::shared_ptr<ProcessFootprintSource> m_source;
    const MonotonicClock& m_clock;
    WorkQueue& m_workQueue;
    RunLoop& m_runLoop;
    bool m_isSlow = false;
    bool m_isWalking = false;
    bool m_isAwaited = false;  ///< The last question has found no answer.
    bool m_hasLateAnswer = false;
    MemoryTop m_last;
    double m_lastStartedAt = -std::numeric_limits<double>::infinity();
    double m_walkStartedAt = 0;
    double m_askedAt = -std::numeric_limits<double>::infinity();
    double m_interval = 0;  ///< Seconds between the last two questions; 0 before the second.
    double m_nextWalkAt = 0;
    Subscription m_ahead;
    LifeGuard m_life;
};

}  // namespace velmora
