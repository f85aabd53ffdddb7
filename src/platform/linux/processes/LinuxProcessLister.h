#pragma once

#include "base/LifeGuard.h"
#include "base/Subscription.h"
#include "platform/MonotonicClock.h"
#include "platform/ProcessLister.h"
#include "platform/RunLoop.h"
#include "platform/WorkQueue.h"
#include "platform/linux/files/SystemRoot.h"

#include <memory>
#include <vector>

namespace velmora {

/// Makes the lines of the process lister from walks over /proc. The system's own lister takes other arguments
/// and, worse, gives the average processor share of a process's whole life: a quarter for one that has just
/// been busy for a second after three idle ones. Here the share is over the time since the last call; where
/// that is unknown or longer ago than ten seconds, over 0.7 seconds that the caller waits for. The shortest
/// time is 0.7 seconds too, as processor time is counted in hundredths of a second. Calls that come while
/// others wait get the same answer as those.
///
/// Two lists of arguments are known, those for the processor and for resident memory; any other cannot be
/// launched.
class LinuxProcessLister final : public ProcessLister {
public:
    LinuxProcessLister(const SystemRoot& root, const MonotonicClock& clock, WorkQueue& workQueue,
                       RunLoop& runLoop);

    void run(const std::vector<std::string>& arguments, int lines, Completion completion) override;

    static constexpr double kShortestElapsed = 0.7;
    static constexpr double kLongestElapsed = 10;

private:
    class Walks;
    using Deliver = std::function<void(std::optional<std::string>)>;
    struct Call {
        int lines;
        Deliver deliver;
    };

    void runMemory(int lines, const Deliver& deliver);
    void runCPU(int lines, Deliver deliver);
    void lookAtShares();
    void answer(std::size_t count, const std::optional<std::string>& output);

    const MonotonicClock& m_clock;
    WorkQueue& m_workQueue;
    RunLoop& m_runLoop;
    std::shared_ptr<Walks> m_walks;  ///< Shared with work that may outlive this object.
    std::vector<Call> m_calls;       ///< For shares, under way together.
    Subscription m_pause;
    LifeGuard m_life;
};

}  // namespace velmora
