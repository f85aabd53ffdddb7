#include "samplers/RusageInterval.h"

#include <utility>

namespace velmora {

RusageInterval::RusageInterval(std::shared_ptr<ProcessCounterSource> source, const Clock& clock,
                               WorkQueue& workQueue, RunLoop& runLoop)
    : m_source(std::move(source)), m_clock(clock), m_workQueue(workQueue), m_runLoop(runLoop) {}

void RusageInterval::next(Completion completion) {
    if (m_previousAt) {
        compare(completion);
        return;
    }
    takeMoment([this, completion = std::move(completion)](Moment moment) {
        m_previous = std::move(moment.entries);
        m_previousAt = moment.at;
        m_pause = m_runLoop.after(kFirstPause, [this, completion] { compare(completion); });
    });
}

void RusageInterval::takeMoment(std::function<void(Moment)> use) {
    m_workQueue.async([source = m_source, &clock = m_clock, &runLoop = m_runLoop,
                       use = m_life.wrap(std::move(use))]() mutable {
        Moment moment;
        moment.entries = RusageSnapshot::take(*source);
        moment.at = clock.now();
        runLoop.post(
            [use = std::move(use), moment = std::move(moment)]() mutable { use(std::move(moment)); });
    });
}

void RusageInterval::compare(const Completion& completion) {
    takeMoment([this, completion](Moment moment) {
        const Date base = m_previousAt.value_or(moment.at);
        const RusageSnapshot::Entries before = std::exchange(m_previous, std::move(moment.entries));
        m_previousAt = moment.at;
        const Interval interval{before, m_previous, moment.at - base};
        completion(interval.elapsed > kShortestElapsed ? &interval : nullptr);
    });
}

}  // namespace velmora
