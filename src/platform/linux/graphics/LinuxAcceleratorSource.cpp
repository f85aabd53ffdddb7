#include "platform/linux/graphics/LinuxAcceleratorSource.h"

#include "platform/RunLoop.h"
#include "platform/WorkQueue.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace velmora {
namespace {

constexpr double kCadence = 2;
/// A timer may come a little early.
constexpr double kSlack = 0.05;
/// How soon to look again on a machine without a card that can be asked; one may be plugged in.
constexpr double kSearchCadence = 60;
constexpr std::uint64_t kLongestAge = 3;

}  // namespace

LinuxAcceleratorSource::LinuxAcceleratorSource(const SystemRoot& root, WorkQueue& workQueue, RunLoop& runLoop,
                                               GraphicsCards::NvidiaLoader loadNvidia,
                                               MonotonicClock monotonicSeconds)
    : m_workQueue(workQueue),
      m_runLoop(runLoop),
      m_monotonicSeconds(std::move(monotonicSeconds)),
      m_state(std::make_shared<State>(GraphicsCards(root, std::move(loadNvidia)))) {}

double LinuxAcceleratorSource::systemMonotonicSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

bool LinuxAcceleratorSource::utilizations(std::vector<int>& percents) {
    percents.clear();
    const double now = m_monotonicSeconds();
    const double sinceDue = now - m_lastDue;
    const double cadence = m_state->hasCards ? kCadence : kSearchCadence;
    if (m_reading == 0 || sinceDue >= cadence - kSlack) {
        // After a pause, in which nobody asked, the last result is of another time.
        if (sinceDue > static_cast<double>(kLongestAge) * std::max(m_period, cadence))
            m_state->hasResult = false;
        if (m_reading > 0) m_period = sinceDue;
        m_lastDue = now;
        ++m_reading;
        startReading();
    }
    if (!m_state->hasResult || m_reading - m_state->resultReading > kLongestAge) return false;
    percents.assign(m_state->result.begin(), m_state->result.end());
    return true;
}

void LinuxAcceleratorSource::startReading() {
    if (m_state->readingUnderWay) return;
    m_state->readingUnderWay = true;
    m_workQueue.async(
        [state = m_state, runLoop = &m_runLoop, reading = m_reading, clock = m_monotonicSeconds] {
            std::vector<int> percents = state->cards.read(clock());
            runLoop->post([state, reading, percents = std::move(percents)]() mutable {
                state->readingUnderWay = false;
                state->hasResult = true;
                state->hasCards = state->cards.hasCards();
                state->resultReading = reading;
                state->result = std::move(percents);
            });
        });
}

}  // namespace velmora
