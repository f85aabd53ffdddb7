#pragma once

#include "fakes/FakeClock.h"
#include "platform/RunLoop.h"

#include <poll.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace velmora {

/// A run loop in virtual time. Nothing happens by itself: a test says how much time passes, and timers fire
/// in the order in which they are due while the clock moves along. Setting the clock alone is a jump of the
/// wall clock, which timers do not see. Firing a timer does not allocate.
class FakeRunLoop final : public RunLoop {
public:
    explicit FakeRunLoop(FakeClock& clock) : m_clock(clock) {}

    void post(std::function<void()> task) override {
        const std::lock_guard lock(m_postedMutex);
        m_posted.push_back(std::move(task));
        m_postedCondition.notify_all();
    }

    Subscription after(double seconds, std::function<void()> task) override {
        return addTimer(seconds, Repetition::once, std::move(task));
    }

    Subscription every(double seconds, std::function<void()> task) override {
        return addTimer(seconds, Repetition::endless, std::move(task));
    }

    Subscription watch(int descriptor, Readiness readiness, std::function<void()> task) override {
        auto watcher = std::make_shared<Watcher>(Watcher{descriptor, readiness, std::move(task)});
        m_watchers->push_back(watcher);
        return ending(m_watchers, watcher);
    }

    /// Runs one round: the tasks that are posted now, not those that they post in turn. Gives their number.
    std::size_t runPostedRound() {
        std::deque<std::function<void()>> round;
        {
            const std::lock_guard lock(m_postedMutex);
            round.swap(m_posted);
        }
        for (const auto& task : round) task();
        return round.size();
    }

    /// Runs posted tasks until there are none. Gives their number.
    std::size_t runPosted() {
        std::size_t total = 0;
        while (const std::size_t ran = runPostedRound()) total += ran;
        return total;
    }

    std::size_t postedCount() const {
        const std::lock_guard lock(m_postedMutex);
        return m_posted.size();
    }

    /// Waits, in real time, until another thread has posted something. False when the time is over.
    bool waitForPost(std::chrono::milliseconds limit = std::chrono::seconds(10)) {
        std::unique_lock lock(m_postedMutex);
        return m_postedCondition.wait_for(lock, limit, [this] { return !m_posted.empty(); });
    }

    /// Lets virtual time pass. Posted tasks run first, and again after each timer.
    void advance(double seconds) {
        const double target = m_now + seconds;
        runPosted();
        while (const std::shared_ptr<Timer> timer = nextTimer(target)) {
            moveTo(std::max(m_now, timer->due));
            fire(timer);
            runPosted();
        }
        moveTo(target);
    }

    /// Lets virtual time pass in which the thread is busy elsewhere: nothing runs until the next `advance`.
    void stall(double seconds) { moveTo(m_now + seconds); }

    /// Seconds of virtual time since the loop was made.
    double elapsed() const { return m_now; }
    std::size_t timerCount() const { return m_timers->size(); }
    std::size_t watcherCount() const { return m_watchers->size(); }
    /// Periods or delays of the live timers in the order in which they were made.
    std::vector<double> timerSeconds() const {
        std::vector<double> seconds;
        for (const auto& timer : *m_timers) seconds.push_back(timer->seconds);
        return seconds;
    }

    /// Runs the tasks that watch the descriptor for this, as if it had become ready. Gives their number.
    std::size_t fireWatch(int descriptor, Readiness readiness) {
        std::size_t ran = 0;
        for (const auto& watcher : std::vector(*m_watchers)) {
            if (watcher->descriptor != descriptor || watcher->readiness != readiness || !isLive(watcher))
                continue;
            watcher->task();
            ++ran;
        }
        return ran;
    }

    /// Waits, in real time, until a watched descriptor is really ready, and runs the tasks of all that are.
    /// Gives their number, 0 when the time is over.
    std::size_t pollWatches(std::chrono::milliseconds limit = std::chrono::seconds(10)) {
        const std::vector<std::shared_ptr<Watcher>> watchers = *m_watchers;
        std::vector<pollfd> descriptors;
        for (const auto& watcher : watchers) {
            descriptors.push_back({watcher->descriptor, eventsOf(watcher->readiness), 0});
        }
        if (::poll(descriptors.data(), descriptors.size(), static_cast<int>(limit.count())) <= 0) return 0;
        std::size_t ran = 0;
        for (std::size_t index = 0; index < watchers.size(); ++index) {
            if (descriptors[index].revents == 0 || !isLive(watchers[index])) continue;
            watchers[index]->task();
            ++ran;
        }
        return ran;
    }

private:
    /// A period of nothing would fire for ever within one moment.
    static constexpr double kShortestPeriod = 0.001;

    enum class Repetition { once, endless };
    struct Timer {
        double seconds;
        double due;
        Repetition repetition;
        std::function<void()> task;
    };
    struct Watcher {
        int descriptor;
        Readiness readiness;
        std::function<void()> task;
    };

    static short eventsOf(Readiness readiness) {
        switch (readiness) {
            case Readiness::readable:
                return POLLIN;
            case Readiness::writable:
                return POLLOUT;
            case Readiness::exceptional:
                return POLLPRI;
        }
        return 0;
    }

    template <typename Entry>
    static Subscription ending(const std::shared_ptr<std::vector<std::shared_ptr<Entry>>>& list,
                               const std::shared_ptr<Entry>& entry) {
        return Subscription([weakList = std::weak_ptr(list), weakEntry = std::weak_ptr(entry)] {
            const auto owner = weakList.lock();
            const auto entryToEnd = weakEntry.lock();
            if (owner && entryToEnd) std::erase(*owner, entryToEnd);
        });
    }

    bool isLive(const std::shared_ptr<Watcher>& watcher) const {
        return std::ranges::find(*m_watchers, watcher) != m_watchers->end();
    }

    Subscription addTimer(double seconds, Repetition repetition, std::function<void()> task) {
        auto timer = std::make_shared<Timer>(Timer{seconds, m_now + seconds, repetition, std::move(task)});
        m_timers->push_back(timer);
        return ending(m_timers, timer);
    }

    /// The earliest timer that is due at the given time, the elder one of equals; null if none is.
    std::shared_ptr<Timer> nextTimer(double until) const {
        // Sums of periods that are no binary fractions may lie a hair beside the sum of the steps.
        constexpr double kRounding = 1e-9;
        std::shared_ptr<Timer> next;
        for (const auto& timer : *m_timers) {
            if (timer->due <= until + kRounding && (!next || timer->due < next->due)) next = timer;
        }
        return next;
    }

    void fire(const std::shared_ptr<Timer>& timer) {
        if (timer->repetition == Repetition::once) {
            std::erase(*m_timers, timer);
        } else {
            // Periods that passed while the thread was busy are skipped.
            do {
                timer->due += std::max(timer->seconds, kShortestPeriod);
            } while (timer->due <= m_now);
        }
        timer->task();
    }

    void moveTo(double time) {
        if (time <= m_now) return;
        m_clock.advance(time - m_now);
        m_now = time;
    }

    FakeClock& m_clock;
    double m_now = 0;
    std::shared_ptr<std::vector<std::shared_ptr<Timer>>> m_timers =
        std::make_shared<std::vector<std::shared_ptr<Timer>>>();
    std::shared_ptr<std::vector<std::shared_ptr<Watcher>>> m_watchers =
        std::make_shared<std::vector<std::shared_ptr<Watcher>>>();
    mutable std::mutex m_postedMutex;
    std::condition_variable m_postedCondition;
    std::deque<std::function<void()>> m_posted;
};

}  // namespace velmora
