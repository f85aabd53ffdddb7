#include "samplers/NetworkSampler.h"

#include "base/CounterRate.h"

#include <utility>

namespace velmora {

NetworkRates NetworkSampler::sample(double interval) {
    using Previous = std::optional<std::uint64_t>;
    const NetworkTotals totals = counters();
    const NetworkRates rates{
        .downPerSec =
            counterRate(m_hasPrevious ? Previous(m_previousDown) : std::nullopt, totals.down, interval),
        .upPerSec = counterRate(m_hasPrevious ? Previous(m_previousUp) : std::nullopt, totals.up, interval),
        .totalDown = totals.down,
        .totalUp = totals.up};
    m_previousDown = totals.down;
    m_previousUp = totals.up;
    m_hasPrevious = true;
    return rates;
}

NetworkTotals NetworkSampler::counters() {
    NetworkTotals totals;
    if (!m_counterSource.read(m_interfaces)) return totals;
    for (const InterfaceCounters& interface : m_interfaces) {
        if (interface.isLoopback) continue;
        totals.down += interface.receivedBytes;
        totals.up += interface.sentBytes;
    }
    return totals;
}

std::optional<std::string> NetworkSampler::localIPAddress() {
    std::vector<InterfaceAddress> addresses = m_addressSource.ipv4Addresses();
    InterfaceAddress* best = nullptr;
    for (InterfaceAddress& address : addresses) {
        if (!address.isUp || address.isLoopback || !address.text) continue;
        // Only a smaller name takes the place, so that the first of an interface's addresses stays.
        if (best && address.name >= best->name) continue;
        if (m_addressSource.isLanName(address.name)) best = &address;
    }
    if (!best) return std::nullopt;
    return std::move(best->text);
}

}  // namespace velmora
