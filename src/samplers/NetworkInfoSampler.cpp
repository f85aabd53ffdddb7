#include "samplers/NetworkInfoSampler.h"

#include "base/FormatText.h"
#include "base/Utf8Text.h"

#include <string_view>
#include <utility>
#include <vector>

namespace velmora {
namespace {

constexpr int kSixGigahertzBand = 3;

std::optional<std::string_view> bandName(int band) {
    switch (band) {
        case 1:
            return "2.4 GHz";
        case 2:
            return "5 GHz";
        case kSixGigahertzBand:
            return "6 GHz";
        default:
            return std::nullopt;
    }
}

std::string channelText(const WifiChannel& channel) {
    const auto band = bandName(channel.band);
    if (!band) return formatText("%d", {channel.number});
    return formatText("%d \u00B7 %s", {channel.number, *band});
}

std::optional<std::string> generationName(int phyMode, int band) {
    switch (phyMode) {
        case 1:
        case 2:
        case 3:
            return "Wi-Fi";
        case 4:
            return "Wi-Fi 4";
        case 5:
            return "Wi-Fi 5";
        case 6:
            return band == kSixGigahertzBand ? "Wi-Fi 6E" : "Wi-Fi 6";
        case 7:
            return "Wi-Fi 7";
        default:
            return std::nullopt;
    }
}

}  // namespace

std::optional<std::string> NetworkInfoSampler::primaryInterface() {
    return m_configuration.globalIPv4().primaryInterface;
}

std::optional<std::string> NetworkInfoSampler::routerAddress() {
    return m_configuration.globalIPv4().router;
}

std::optional<std::string> NetworkInfoSampler::dnsAddress() {
    std::vector<std::string> servers = m_configuration.nameServers();
    if (servers.empty()) return std::nullopt;
    return std::move(servers.front());
}

std::optional<std::string> NetworkInfoSampler::networkName(const std::optional<std::string>& bsd) {
    if (auto wifi = m_wifi.defaultInterface(); wifi && wifi->ssid && (!bsd || wifi->name == *bsd))
        return std::move(wifi->ssid);
    return interfaceDisplayName(bsd);
}

std::optional<std::string> NetworkInfoSampler::interfaceDisplayName(const std::optional<std::string>& bsd) {
    if (!bsd) return std::nullopt;
    for (NamedInterface& interface : m_configuration.interfaces()) {
        if (interface.bsdName == *bsd && interface.displayName) return std::move(interface.displayName);
    }
    // The kernel takes any bytes as a name.
    return validUtf8(*bsd);
}

std::optional<double> NetworkInfoSampler::linkSpeed(const std::optional<std::string>& bsd) {
    constexpr double kBitsPerMegabit = 1000000;
    if (!bsd) return std::nullopt;
    if (const auto wifi = m_wifi.defaultInterface(); wifi && wifi->name == *bsd && wifi->transmitRate > 0)
        return wifi->transmitRate;
    for (const InterfaceLink& link : m_interfaces.links(*bsd)) {
        if (link.baudRate != 0) return static_cast<double>(link.baudRate) / kBitsPerMegabit;
    }
    return std::nullopt;
}

std::optional<std::string> NetworkInfoSampler::macAddress(const std::optional<std::string>& bsd) {
    if (!bsd) return std::nullopt;
    for (const InterfaceLink& link : m_interfaces.links(*bsd)) {
        const auto& bytes = link.address;
        if (bytes.size() < 4) continue;
        return formatText("%02X:%02X:%02X:%02X", {bytes[0], bytes[1], bytes[2], bytes[3]});
    }
    return std::nullopt;
}

WifiDetail NetworkInfoSampler::wifiDetail() {
    WifiDetail detail;
    auto wifi = m_wifi.defaultInterface();
    if (!wifi || !wifi->isPoweredOn || !wifi->channel) return detail;
    if (!std::exchange(m_locationRequested, true)) {
        constexpr int kNotDetermined = 0;
        if (m_location.status() == kNotDetermined) m_location.requestWhenInUse();
    }
    if (wifi->rssi != 0) detail.rssi = wifi->rssi;
    detail.phy = generationName(wifi->phyMode, wifi->channel->band);
    detail.channel = channelText(*wifi->channel);
    detail.ssid = std::move(wifi->ssid);
    return detail;
}

std::optional<std::string> NetworkInfoSampler::proxyDescription() {
    const auto settings = m_proxies.read();
    if (!settings) return std::nullopt;
    if (settings->isAutomatic) return "PAC";
    for (const ProxyWay* way : {&settings->http, &settings->https, &settings->socks}) {
        if (way->isEnabled && !way->host.empty()) return validUtf8(way->host);
    }
    return std::nullopt;
}

bool NetworkInfoSampler::vpnActive() {
    for (const InterfaceAddress& address : m_interfaces.ipv4Addresses()) {
        if (!address.text || address.text->starts_with("169.254") || *address.text == "0.0.0.0") continue;
        if (m_interfaces.isTunnelName(address.name)) return true;
    }
    return false;
}

}  // namespace velmora
