#include "samplers/CPUSampler.h"

#include "platform/Clock.h"

#include <cstddef>
#include <cstdint>
#include <utility>

namespace velmora {
namespace {

/// Ticks between two reads. The counters wrap at 32 bits, and so does their difference: it is the true small
/// one also over a wrap.
double ticksBetween(std::uint32_t previous, std::uint32_t current) {
    return static_cast<double>(static_cast<std::uint32_t>(current - previous));
}

}  // namespace

void CPUSampler::sample(CPUFigures& figures) {
    figures.usage = figures.user = figures.system = 0;
    figures.perCore.clear();
    if (!m_ticksSource.read(m_currentTicks)) return;
    std::swap(m_previousTicks, m_currentTicks);
    const std::vector<CoreTicks>& before = m_currentTicks;
    const std::vector<CoreTicks>& now = m_previousTicks;
    figures.perCore.resize(now.size());
    if (before.size() != now.size()) return;

    double sumUser = 0;
    double sumSystem = 0;
    double sumTotal = 0;
    for (std::size_t core = 0; core < now.size(); ++core) {
        // Nice time is the user's too.
        const double user =
            ticksBetween(before[core].user, now[core].user) + ticksBetween(before[core].nice, now[core].nice);
        const double system = ticksBetween(before[core].system, now[core].system);
        const double busy = user + system;
        const double total = busy + ticksBetween(before[core].idle, now[core].idle);
        if (total > 0) figures.perCore[core] = busy / total;
        sumUser += user;
        sumSystem += system;
        sumTotal += total;
    }
    if (!(sumTotal > 0)) return;
    figures.usage = (sumSystem + sumUser) / sumTotal;
    figures.user = sumUser / sumTotal;
    figures.system = sumSystem / sumTotal;
}

double CPUSampler::uptime() {
    const auto bootSeconds = m_bootSource.bootTimeSeconds();
    if (!bootSeconds || *bootSeconds < 1) return 0;
    return m_clock.now().secondsSince1970 - static_cast<double>(*bootSeconds);
}

}  // namespace velmora
