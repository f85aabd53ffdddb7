#include "core/NetworkStage.h"

#include "core/DailyCounters.h"

#include <utility>

namespace velmora {
namespace {

constexpr double kLongPeriod = 10.0;
constexpr double kLocalIPPeriod = 10.0;
constexpr double kDetailsPeriod = 30.0;

}  // namespace

NetworkStage::NetworkStage(Date now, RunLoop& runLoop, const Samplers& samplers, DailyCounters& daily)
    : m_network(samplers.network),
      m_info(samplers.networkInfo),
      m_daily(daily),
      m_ping(runLoop, samplers.icmpPing, samplers.measurePing),
      m_connectedAt(now) {}

void NetworkStage::sample(Date now, double elapsed, NetworkStats& stats) {
    const NetworkRates rates = m_network.sample(elapsed);
    stats.downPerSec = rates.downPerSec;
    stats.upPerSec = rates.upPerSec;
    stats.totalDown = rates.totalDown;
    stats.totalUp = rates.totalUp;
    stats.downHistory.append(stats.downPerSec);
    stats.upHistory.append(stats.upPerSec);
    if (!stats.localIP || now - m_localIPRefreshedAt > kLocalIPPeriod) {
        m_localIPRefreshedAt = now;
        stats.localIP = m_network.localIPAddress();
    }
    m_daily.countNetwork(now, elapsed, stats);
    if (now - m_longSampledAt >= kLongPeriod) {
        m_longSampledAt = now;
        stats.downLong.append(stats.downPerSec);
        stats.upLong.append(stats.upPerSec);
    }
    // Without a network's name the machine is perhaps just connecting, so it is asked at every sample.
    if (!stats.netName || now - m_detailsRefreshedAt > kDetailsPeriod) {
        m_detailsRefreshedAt = now;
        refreshDetails(now, stats);
    }
    stats.connectedSec = now - m_connectedAt;
    m_ping.sample(now, stats);
}

void NetworkStage::refreshDetails(Date now, NetworkStats& stats) {
    const std::optional<std::string> bsd = m_info.primaryInterface();
    stats.netName = m_info.networkName(bsd);
    stats.linkMbps = m_info.linkSpeed(bsd);
    stats.ifaceName = m_info.interfaceDisplayName(bsd);
    WifiDetail wifi = m_info.wifiDetail();
    stats.rssi = wifi.rssi;
    stats.phyMode = std::move(wifi.phy);
    stats.channel = std::move(wifi.channel);
    stats.ssid = std::move(wifi.ssid);
    stats.router = m_info.routerAddress();
    stats.dns = m_info.dnsAddress();
    stats.mac = m_info.macAddress(bsd);
    stats.vpnOn = m_info.vpnActive();
    stats.proxy = m_info.proxyDescription();
    noteConnection(now, bsd, stats.netName);
}

void NetworkStage::noteConnection(Date now, const std::optional<std::string>& bsd,
                                  const std::optional<std::string>& network) {
    std::string connection = bsd.value_or("") + "/" + network.value_or("");
    if (m_connection == connection) return;
    m_connection = std::move(connection);
    m_connectedAt = now;
}

}  // namespace velmora
