#include "samplers/ProcessFootprintSampler.h"

#include "samplers/TopProcessSampler.h"

#include <algorithm>
#include <utility>

namespace velmora {
namespace {

constexpr double kLead = 1;
/// The walk's own pace, for as long as no other one is known.
constexpr double kUsualInterval = 10;
/// A longer time between two questions was a pause, and tells nothing of the next.
constexpr double kLongestInterval = 600;
/// A result older than this many refreshes is no answer any more.
constexpr double kOldestInIntervals = 3;

}  // namespace

ProcessFootprintSampler::ProcessFootprintSampler(std::shared_ptr<ProcessFootprintSource> source,
                                                 const MonotonicClock& clock, WorkQueue& workQueue,
                                                 RunLoop& runLoop)
    : m_source(std::move(source)), m_clock(clock), m_workQueue(workQueue), m_runLoop(runLoop) {}

MemoryTop ProcessFootprintSampler::memoryFootprintTop(int limit) {
    const double now = m_clock.seconds();
    if (!m_isSlow) {
        m_isSlow = m_source->listAll({}) > kMostProcessesAtOnce;
        if (!m_isSlow) return walkNow(limit);
    } else if (std::exchange(m_hasLateAnswer, false) && now < m_nextWalkAt) {
        // Who comes back for a late answer has asked before, and the next walk stands as planned.
        return m_last;
    }
    m_isAwaited = now - m_lastStartedAt > kOldestInIntervals * std::max(m_interval, kUsualInterval);
    if (m_isAwaited) startWalk(limit);
    const double passed = now - std::exchange(m_askedAt, now);
    if (passed <= kLongestInterval) m_interval = passed;
    planNextWalk(now, limit);
    return m_isAwaited ? MemoryTop{} : m_last;
}

MemoryTop ProcessFootprintSampler::walkNow(int limit) {
    m_lastStartedAt = m_askedAt = m_clock.seconds();
    m_last = TopProcessSampler::memoryFootprintTop(*m_source, limit);
    m_isSlow = m_clock.seconds() - m_lastStartedAt > kLongestWalkSeconds;
    if (m_isSlow) planNextWalk(m_askedAt, limit);
    return m_last;
}

void ProcessFootprintSampler::planNextWalk(double now, int limit) {
    const double seconds = std::max(m_interval, kUsualInterval) - kLead;
    m_nextWalkAt = now + seconds;
    m_ahead = m_runLoop.after(seconds, [this, limit] { startWalk(limit); });
}

void ProcessFootprintSampler::startWalk(int limit) {
    // Two walks at once would share the source, and one that hangs would gather more behind it.
    if (std::exchange(m_isWalking, true)) return;
    m_walkStartedAt = m_clock.seconds();
    m_workQueue.async(
        [source = m_source, limit, &runLoop = m_runLoop, take = m_life.wrap([this](MemoryTop top) {
            m_last = std::move(top);
            m_lastStartedAt = m_walkStartedAt;
            m_isWalking = false;
            m_hasLateAnswer = std::exchange(m_isAwaited, false);
        })]() mutable {
            runLoop.post([take = std::move(take), top = TopProcessSampler::memoryFootprintTop(
                                                      *source, limit)]() mutable { take(std::move(top)); });
        });
}

}  // namespace velmora
