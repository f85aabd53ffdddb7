#pragma once

#include "platform/InterfaceAddressSource.h"
#include "platform/InterfaceCounterSource.h"
#include "samplers/Samplers.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// Bytes received and sent over all interfaces together.
struct NetworkTotals {
    std::uint64_t down = 0;
    std::uint64_t up = 0;
    friend bool operator==(const NetworkTotals&, const NetworkTotals&) = default;
};

/// Turns the interfaces' byte counters into two rates, and gives the machine's address in its local network.
/// A failed read counts as totals of 0, so the rate after it spans all that there is: a failure is not told
/// from a real zero.
class NetworkSampler final : public NetworkSampling {
public:
    NetworkSampler(InterfaceCounterSource& counters, InterfaceAddressSource& addresses)
        : m_counterSource(counters), m_addressSource(addresses) {}

    NetworkRates sample(double interval) override;
    /// Every interface but loopback, up or down; 0 and 0 on failure.
    NetworkTotals counters();
    /// The IPv4 address of the interface in the local network whose name is the smallest by plain comparison.
    std::optional<std::string> localIPAddress() override;

private:
    InterfaceCounterSource& m_counterSource;
    InterfaceAddressSource& m_addressSource;
    std::vector<InterfaceCounters> m_interfaces;  ///< Kept for its storage only.
    std::uint64_t m_previousDown = 0;
    std::uint64_t m_previousUp = 0;
    bool m_hasPrevious = false;
};

}  // namespace velmora
