#pragma once

#include "base/Date.h"
#include "core/PingMonitor.h"
#include "samplers/Samplers.h"

#include <optional>
#include <string>

namespace velmora {

class DailyCounters;

/// Makes the network's record: rates, series, traffic of day and month, details of the connection, latency.
class NetworkStage {
public:
    /// `now` is when the present connection is taken to have begun, until its details say more.
    NetworkStage(Date now, RunLoop& runLoop, const Samplers& samplers, DailyCounters& daily);

    void sample(Date now, double elapsed, NetworkStats& stats);

private:
    void refreshDetails(Date now, NetworkStats& stats);
    void noteConnection(Date now, const std::optional<std::string>& bsd,
                        const std::optional<std::string>& network);

    NetworkSampling& m_network;
    NetworkInfoSampling& m_info;
    DailyCounters& m_daily;
    PingMonitor m_ping;
    Date m_longSampledAt = Date::distantPast();
    Date m_localIPRefreshedAt = Date::distantPast();
    Date m_detailsRefreshedAt = Date::distantPast();
    Date m_connectedAt;
    std::optional<std::string> m_connection;  ///< Identity of the present connection.
};

}  // namespace velmora
