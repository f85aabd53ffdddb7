#pragma once

#include "base/Date.h"
#include "base/LifeGuard.h"
#include "base/Subscription.h"
#include "platform/Clock.h"
#include "platform/ProcessCounterSource.h"
#include "platform/RunLoop.h"
#include "platform/WorkQueue.h"
#include "samplers/RusageSnapshot.h"

#include <functional>
#include <memory>
#include <optional>

namespace velmora {

/// Two snapshots of all processes with the time between them: that of the last call and a new one. The first
/// call has no earlier one and takes it, 0.7 seconds before the new one. Snapshots are taken on the work
/// queue; no thread is blocked in the pause.
class RusageInterval {
public:
    /// The source is shared with work that may outlive this object.
    RusageInterval(std::shared_ptr<ProcessCounterSource> source, const Clock& clock, WorkQueue& workQueue,
                   RunLoop& runLoop);

    struct Interval {
        const RusageSnapshot::Entries& before;
        const RusageSnapshot::Entries& after;
        double elapsed;  ///< Above 0.1 seconds.
    };
    /// Called on the main thread, with null if the last call was too short ago to tell a rate.
    using Completion = std::function<void(const Interval*)>;
    /// One call at a time. The new snapshot becomes the base of the next call.
    void next(Completion completion);

    static constexpr double kFirstPause = 0.7;
    static constexpr double kShortestElapsed = 0.1;

private:
    struct Moment {
        RusageSnapshot::Entries entries;
        Date at;
    };
    void takeMoment(std::function<void(Moment)> use);
    void compare(const Completion& completion);

    std::shared_ptr<ProcessCounterSource> m_source;
    const Clock& m_clock;
    WorkQueue& m_workQueue;
    RunLoop& m_runLoop;
    RusageSnapshot::Entries m_previous;
    std::optional<Date> m_previousAt;
    Subscription m_pause;
    LifeGuard m_life;
};

}  // namespace velmora
