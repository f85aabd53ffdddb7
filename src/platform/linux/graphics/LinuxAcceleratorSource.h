#pragma once

#include "platform/ProcessorSources.h"
#include "platform/linux/files/SystemRoot.h"
#include "platform/linux/graphics/GraphicsCards.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace velmora {

class RunLoop;
class WorkQueue;

/// The graphics cards, read on the work queue: a question of the main thread is answered with the last result
/// and starts the next reading. A result that is more than three readings old is not given any more, so a
/// card that hangs does not leave its last figure standing.
class LinuxAcceleratorSource final : public AcceleratorSource {
public:
    /// A clock in seconds that is never set.
    using MonotonicClock = std::function<double()>;
    /// The default reads the system's.
    LinuxAcceleratorSource(const SystemRoot& root, WorkQueue& workQueue, RunLoop& runLoop,
                           GraphicsCards::NvidiaLoader loadNvidia = loadNvidiaLibrary,
                           MonotonicClock monotonicSeconds = systemMonotonicSeconds);

    bool utilizations(std::vector<int>& percents) override;

    static double systemMonotonicSeconds();

private:
    /// What the worker's answers need; it outlives this source when work is still under way.
    struct State {
        explicit State(GraphicsCards theCards) : cards(std::move(theCards)) {}
        GraphicsCards cards;  ///< The worker's alone while a reading is under way.

        // The rest is the main thread's.
        bool readingUnderWay = false;
        bool hasResult = false;
        bool hasCards = true;
        std::uint64_t resultReading = 0;  ///< Number of the reading that gave the result.
        std::vector<int> result;
    };

    void startReading();

    WorkQueue& m_workQueue;
    RunLoop& m_runLoop;
    MonotonicClock m_monotonicSeconds;
    std::shared_ptr<State> m_state;
    std::uint64_t m_reading = 0;  ///< Number of the last reading that was due.
    double m_lastDue = 0;
    double m_period = 0;  ///< Seconds between the last two.
};

}  // namespace velmora
