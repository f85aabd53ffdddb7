#pragma once

#include "base/Subscription.h"
#include "platform/MonotonicClock.h"
#include "platform/RunLoop.h"
#include "platform/WorkQueue.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <utility>

namespace velmora {

/// Something that is slow to read, read on the work queue. A question of the main thread is answered with the
/// last result and starts the next reading. There is never more than one reading under way; one that hangs
/// takes the answer away once the last result is older than three of them.
///
/// Who asks seldom would get a result that is one long period old, so for him the next reading starts a
/// second before his next question. The result is taken at the question and not posted, as nobody needs to be
/// woken for it.
template <typename Result>
class BackgroundReading {
public:
    /// Writes the result, whose storage is that of an earlier one, and gives the seconds after which it is
    /// worth reading again. Runs on the work queue alone.
    using Read = std::function<double(Result&)>;

    /// `patience` is how many seconds a question waits if there is no result that is young enough.
    BackgroundReading(WorkQueue& workQueue, RunLoop& runLoop, const MonotonicClock& clock, double patience,
                      Read read)
        : m_workQueue(workQueue),
          m_runLoop(runLoop),
          m_clock(clock),
          m_patience(patience),
          m_state(std::make_shared<State>(std::move(read))) {}
    BackgroundReading(const BackgroundReading&) = delete;
    BackgroundReading& operator=(const BackgroundReading&) = delete;

    /// Starts a reading unless one is under way.
    void start() {
        takeResult(Wait::no);
        if (m_isUnderWay) return;
        m_isUnderWay = true;
        m_hasWaited = false;
        m_startedAt = m_clock.seconds();
        m_workQueue.async([state = m_state] {
            state->nextCadence = state->read(state->beingRead);
            state->finish();
        });
    }

    /// Null if there is no result that is young enough. Valid until the next question.
    const Result* latest() {
        const double now = m_clock.seconds();
        takeResult(Wait::no);
        // Two askers in one tick are one question.
        const bool isSameQuestion = m_wasAsked && now - m_askedAt < kSameMoment;
        const double oldest = kOldestInReadings * std::max(m_cadence, expectedInterval(now)) + kSlack;
        if (!isYounger(now, oldest)) {
            start();
            waitForResult();
        } else if (now - m_startedAt >= m_cadence - kSlack) {
            start();
        }
        if (!isSameQuestion) noteQuestion(now);
        return isYounger(now, oldest) ? &m_result : nullptr;
    }

private:
    static constexpr double kOldestInReadings = 3;
    /// A timer may come a little early or late.
    static constexpr double kSlack = 0.05;
    static constexpr double kSameMoment = 0.1;
    static constexpr double kLongestFirstInterval = 60;
    static constexpr double kLead = 1;
    static constexpr double kShortestIntervalWithLead = 4;
    static constexpr double kLongestIntervalWithLead = 600;

    /// Outlives this object while a reading is under way.
    struct State {
        explicit State(Read theRead) : read(std::move(theRead)) {}
        Read read;
        Result beingRead{};  ///< The worker's alone until it has finished, as is the next.
        double nextCadence = 0;

        void finish() {
            {
                // Under the lock, or a waiter could look and then miss the call.
                const std::lock_guard lock(m_lock);
                m_hasFinished.store(true, std::memory_order_release);
            }
            m_finished.notify_one();
        }
        /// True once per reading. A look that does not wait is one load: a standard semaphore would spin.
        bool takeFinish(double seconds) {
            if (seconds > 0) {
                std::unique_lock lock(m_lock);
                m_finished.wait_for(lock, std::chrono::duration<double>(seconds),
                                    [this] { return m_hasFinished.load(std::memory_order_relaxed); });
            }
            if (!m_hasFinished.load(std::memory_order_acquire)) return false;
            m_hasFinished.store(false, std::memory_order_relaxed);
            return true;
        }

    private:
        std::mutex m_lock;
        std::condition_variable m_finished;
        std::atomic<bool> m_hasFinished = false;
    };

    /// A far longer time than between the last two questions is a pause. The second question of all has none
    /// to compare with.
    double expectedInterval(double now) const {
        if (m_interval > 0 || !m_wasAsked) return m_interval;
        return std::min(now - m_askedAt, kLongestFirstInterval);
    }
    bool isYounger(double now, double age) const { return m_hasResult && now - m_resultStartedAt <= age; }

    enum class Wait { no, patiently };

    void takeResult(Wait wait) {
        if (!m_isUnderWay) return;
        if (!m_state->takeFinish(wait == Wait::no ? 0 : m_patience)) return;
        m_isUnderWay = false;
        std::swap(m_result, m_state->beingRead);
        m_cadence = m_state->nextCadence;
        m_hasResult = true;
        m_resultStartedAt = m_startedAt;
    }

    void waitForResult() {
        // A reading that hangs is waited for once.
        if (std::exchange(m_hasWaited, true) || m_patience <= 0) return;
        takeResult(Wait::patiently);
    }

    void noteQuestion(double now) {
        if (m_wasAsked) m_interval = now - m_askedAt;
        m_wasAsked = true;
        m_askedAt = now;
        if (m_interval >= kShortestIntervalWithLead && m_interval <= kLongestIntervalWithLead)
            m_ahead = m_runLoop.after(m_interval - kLead, [this] { start(); });
    }

    WorkQueue& m_workQueue;
    RunLoop& m_runLoop;
    const MonotonicClock& m_clock;
    const double m_patience;
    const std::shared_ptr<State> m_state;

    Result m_result{};
    double m_cadence = 0;
    bool m_hasResult = false;
    double m_resultStartedAt = 0;
    bool m_isUnderWay = false;
    bool m_hasWaited = false;  ///< For the reading under way.
    double m_startedAt = 0;
    bool m_wasAsked = false;
    double m_askedAt = 0;
    double m_interval = 0;  ///< Seconds between the last two questions.
    Subscription m_ahead;
};

}  // namespace velmora
