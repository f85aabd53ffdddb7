#pragma once

#include "base/Date.h"
#include "core/PingRecord.h"
#include "samplers/Samplers.h"

#include <memory>

namespace velmora {

class RunLoop;

/// Measures the latency now and then. A probe runs elsewhere; its outcome comes back by the run loop, which
/// must outlive every probe. Outcomes that come after the monitor's end are dropped.
class PingMonitor {
public:
    /// A null probe is never made.
    PingMonitor(RunLoop& runLoop, PingProbe icmpPing, PingProbe measurePing);

    /// Sends a probe if the last one was sent more than 5 s ago, and writes `pingMs`, `lossPct` and
    /// `jitterMs`; the latter two stay as they are while too little is known.
    void sample(Date now, NetworkStats& stats);

private:
    void probe();

    RunLoop& m_runLoop;
    PingProbe m_icmpPing;
    PingProbe m_measurePing;
    Date m_sentAt = Date::distantPast();
    std::shared_ptr<PingRecord> m_record = std::make_shared<PingRecord>();
};

}  // namespace velmora
