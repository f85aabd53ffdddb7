#include "samplers/EnergyProcessSampler.h"

#include "base/CounterRate.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace velmora {
namespace {

constexpr double kNanojoulesPerJoule = 1e9;
constexpr double kSmallestPower = 0.01;

}  // namespace

EnergyProcessSampler::EnergyProcessSampler(std::shared_ptr<ProcessCounterSource> source, const Clock& clock,
                                           WorkQueue& workQueue, RunLoop& runLoop)
    : m_source(source), m_runLoop(runLoop), m_interval(std::move(source), clock, workQueue, runLoop) {}

bool EnergyProcessSampler::isSupported() {
    if (!m_isSupported) m_isSupported = m_source->ownEnergy().value_or(0) != 0;
    return *m_isSupported;
}

void EnergyProcessSampler::sample(int limit, Completion completion) {
    if (!isSupported()) {
        m_runLoop.post(
            m_life.wrap([completion = std::move(completion)] { completion(std::vector<TopProcess>()); }));
        return;
    }
    m_interval.next([limit, completion = std::move(completion)](const RusageInterval::Interval* interval) {
        completion(interval ? ranking(*interval, limit) : std::vector<TopProcess>());
    });
}

std::vector<TopProcess> EnergyProcessSampler::ranking(const RusageInterval::Interval& interval, int limit) {
    std::vector<TopProcess> processes;
    for (const auto& [pid, now] : interval.after) {
        const auto old = interval.before.find(pid);
        if (old == interval.before.end()) continue;
        const double watts =
            counterRate(old->second.energy, now.energy, interval.elapsed) / kNanojoulesPerJoule;
        if (watts >= kSmallestPower) processes.push_back({pid, now.name, watts});
    }
    std::ranges::stable_sort(processes, std::ranges::greater(), &TopProcess::value);
    processes.resize(std::min(processes.size(), static_cast<std::size_t>(std::max(limit, 0))));
    return processes;
}

}  // namespace velmora
