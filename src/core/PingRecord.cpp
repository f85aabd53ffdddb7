#include "core/PingRecord.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace velmora {
namespace {

constexpr std::size_t kFailuresThatBlock = 3;
constexpr std::size_t kOutcomesForLoss = 6;
constexpr std::size_t kRoundTripsForJitter = 3;

}  // namespace

void PingRecord::add(std::optional<double> milliseconds, PingMethod method) {
    m_outcomes.append(milliseconds.has_value());
    if (milliseconds) {
        m_lastMs = milliseconds;
        m_roundTrips.append(*milliseconds);
    }
    if (method == PingMethod::icmp && lastThreeFailed()) {
        m_icmpBlocked = true;
        m_outcomes.clear();
    }
}

std::optional<double> PingRecord::lossPct() const {
    if (m_icmpBlocked || m_outcomes.size() < kOutcomesForLoss) return std::nullopt;
    const auto failures = std::count(m_outcomes.begin(), m_outcomes.end(), false);
    return static_cast<double>(failures) / static_cast<double>(m_outcomes.size()) * 100;
}

std::optional<double> PingRecord::jitterMs() const {
    if (m_roundTrips.size() < kRoundTripsForJitter) return std::nullopt;
    double sum = 0;
    for (std::size_t index = 1; index < m_roundTrips.size(); ++index) {
        sum += std::abs(m_roundTrips[index] - m_roundTrips[index - 1]);
    }
    return sum / static_cast<double>(m_roundTrips.size() - 1);
}

bool PingRecord::lastThreeFailed() const {
    return m_outcomes.size() >= kFailuresThatBlock &&
           std::none_of(m_outcomes.end() - kFailuresThatBlock, m_outcomes.end(),
                        [](bool good) { return good; });
}

}  // namespace velmora
