#pragma once

#include "base/History.h"

#include <cstddef>
#include <optional>

namespace velmora {

/// How a round trip was measured.
enum class PingMethod {
    icmp,      ///< An echo request.
    fallback,  ///< Something that also works where echo requests are filtered.
};

/// The outcomes of the latest latency probes, and what follows from them.
class PingRecord {
public:
    /// Takes the outcome of a probe: milliseconds, or nothing for a failure. Three failed echo requests in a
    /// row mean that they do not work here; this is for the rest of the run.
    void add(std::optional<double> milliseconds, PingMethod method);

    /// The method that the next probe has to use.
    PingMethod method() const { return m_icmpBlocked ? PingMethod::fallback : PingMethod::icmp; }
    /// Outcomes that are remembered, 40 at most; none right after the change to the fallback.
    std::size_t outcomeCount() const { return m_outcomes.size(); }
    /// The last good round trip, in milliseconds; a failure leaves it standing.
    std::optional<double> lastMs() const { return m_lastMs; }
    /// Failures among the last 40 outcomes, in percent; nothing with fewer than 6, or once the fallback is in
    /// use.
    std::optional<double> lossPct() const;
    /// Mean absolute difference of neighbours among the last 20 good round trips, in milliseconds; nothing
    /// with fewer than 3.
    std::optional<double> jitterMs() const;

private:
    bool lastThreeFailed() const;

    std::optional<double> m_lastMs;
    History<double, 20> m_roundTrips;
    History<bool, 40> m_outcomes;  ///< True is success.
    bool m_icmpBlocked = false;
};

}  // namespace velmora
