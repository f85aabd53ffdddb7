#include "platform/linux/processor/LinuxProcessorTicksSource.h"

#include "platform/linux/files/StatFile.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace velmora {
namespace {

using ProcStat::CoreTimes;

/// One second. A counter that falls by less is one that the kernel corrected.
constexpr std::uint64_t kLargestCorrection = 100;

bool startedAnew(std::uint64_t last, std::uint64_t now) {
    return now < last && last - now > kLargestCorrection;
}

bool startedAnew(const CoreTimes& last, const CoreTimes& now) {
    return startedAnew(last.user, now.user) || startedAnew(last.nice, now.nice) ||
           startedAnew(last.system, now.system) || startedAnew(last.idle, now.idle);
}

/// The accumulators are the low 32 bits of a sum; who reads them knows that they wrap.
void addGrowth(std::uint32_t& accumulator, std::uint64_t last, std::uint64_t now) {
    if (now > last) accumulator += static_cast<std::uint32_t>(now - last);
}

CoreTicks lowBits(const CoreTimes& times) {
    return {.user = static_cast<std::uint32_t>(times.user),
            .system = static_cast<std::uint32_t>(times.system),
            .idle = static_cast<std::uint32_t>(times.idle),
            .nice = static_cast<std::uint32_t>(times.nice)};
}

}  // namespace

LinuxProcessorTicksSource::LinuxProcessorTicksSource(std::shared_ptr<StatFile> file,
                                                     std::vector<int> efficiencyCpus)
    : m_file(std::move(file)), m_efficiencyCpus(std::move(efficiencyCpus)) {}

bool LinuxProcessorTicksSource::read(std::vector<CoreTicks>& cores) {
    const auto text = m_file->read();
    if (!text) return false;
    ProcStat::parseCoreTimes(*text, m_read);
    if (m_read.empty()) return false;
    putEfficiencyCoresFirst();

    if (m_last.size() != m_ordered.size()) {
        m_accumulators.clear();
        for (const CoreTimes& times : m_ordered) m_accumulators.push_back(lowBits(times));
    } else {
        for (std::size_t position = 0; position < m_ordered.size(); ++position) {
            const CoreTimes& now = m_ordered[position];
            const CoreTimes* const last = lastTimesOf(now, position);
            if (!last || startedAnew(*last, now)) continue;
            CoreTicks& accumulator = m_accumulators[position];
            addGrowth(accumulator.user, last->user, now.user);
            addGrowth(accumulator.system, last->system, now.system);
            addGrowth(accumulator.idle, last->idle, now.idle);
            addGrowth(accumulator.nice, last->nice, now.nice);
        }
    }
    std::swap(m_last, m_ordered);
    cores.assign(m_accumulators.begin(), m_accumulators.end());
    return true;
}

void LinuxProcessorTicksSource::putEfficiencyCoresFirst() {
    if (m_efficiencyCpus.empty()) {
        std::swap(m_ordered, m_read);
        return;
    }
    m_ordered.clear();
    for (const bool efficiency : {true, false}) {
        for (const CoreTimes& times : m_read) {
            if (std::ranges::binary_search(m_efficiencyCpus, times.cpu) == efficiency)
                m_ordered.push_back(times);
        }
    }
}

const CoreTimes* LinuxProcessorTicksSource::lastTimesOf(const CoreTimes& times, std::size_t position) const {
    if (m_last[position].cpu == times.cpu) return &m_last[position];
    const auto found = std::ranges::find(m_last, times.cpu, &CoreTimes::cpu);
    return found == m_last.end() ? nullptr : &*found;
}

}  // namespace velmora
