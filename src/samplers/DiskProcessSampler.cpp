#include "samplers/DiskProcessSampler.h"

#include "base/CounterRate.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace velmora {

void DiskProcessSampler::sample(int limit, Completion completion) {
    m_interval.next([limit, completion = std::move(completion)](const RusageInterval::Interval* interval) {
        completion(interval ? ranking(*interval, limit) : std::vector<TopIOProcess>());
    });
}

std::vector<TopIOProcess> DiskProcessSampler::ranking(const RusageInterval::Interval& interval, int limit) {
    std::vector<TopIOProcess> processes;
    for (const auto& [pid, now] : interval.after) {
        const auto old = interval.before.find(pid);
        if (old == interval.before.end()) continue;
        const double read = counterRate(old->second.read, now.read, interval.elapsed);
        const double write = counterRate(old->second.write, now.write, interval.elapsed);
        if (read + write > 0) processes.push_back({pid, now.name, read, write});
    }
    const auto sum = [](const TopIOProcess& process) { return process.incoming + process.outgoing; };
    std::ranges::stable_sort(processes, std::ranges::greater(), sum);
    processes.resize(std::min(processes.size(), static_cast<std::size_t>(std::max(limit, 0))));
    return processes;
}

}  // namespace velmora
