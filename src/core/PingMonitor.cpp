#include "core/PingMonitor.h"

#include "platform/RunLoop.h"

#include <utility>

namespace velmora {
namespace {

constexpr double kProbePeriod = 5.0;

}  // namespace

PingMonitor::PingMonitor(RunLoop& runLoop, PingProbe icmpPing, PingProbe measurePing)
    : m_runLoop(runLoop), m_icmpPing(std::move(icmpPing)), m_measurePing(std::move(measurePing)) {}

void PingMonitor::sample(Date now, NetworkStats& stats) {
    if (now - m_sentAt > kProbePeriod) {
        m_sentAt = now;
        probe();
    }
    stats.pingMs = m_record->lastMs();
    if (const auto loss = m_record->lossPct()) stats.lossPct = loss;
    if (const auto jitter = m_record->jitterMs()) stats.jitterMs = jitter;
}

void PingMonitor::probe() {
    // The outcome counts for the method that was chosen now, whatever is in use when it arrives.
    const PingMethod method = m_record->method();
    const PingProbe& chosen = method == PingMethod::icmp ? m_icmpPing : m_measurePing;
    if (!chosen) return;
    chosen(
        [&runLoop = m_runLoop, record = std::weak_ptr(m_record), method](std::optional<double> milliseconds) {
            runLoop.post([record, method, milliseconds] {
                if (const auto living = record.lock()) living->add(milliseconds, method);
            });
        });
}

}  // namespace velmora
