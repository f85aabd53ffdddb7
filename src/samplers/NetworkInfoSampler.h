#pragma once

#include "platform/InterfaceAddressSource.h"
#include "platform/NetworkConfigurationSource.h"
#include "platform/WifiSource.h"
#include "samplers/Samplers.h"

#include <optional>
#include <string>

namespace velmora {

/// Facts about the present connection. Each read stands for itself: what cannot be read is absent, nothing is
/// kept between reads but that the permission to see the wireless network's name was asked for.
class NetworkInfoSampler final : public NetworkInfoSampling {
public:
    NetworkInfoSampler(NetworkConfigurationSource& configuration, InterfaceAddressSource& interfaces,
                       WifiSource& wifi, ProxySettingsSource& proxies, LocationAuthorization& location)
        : m_configuration(configuration),
          m_interfaces(interfaces),
          m_wifi(wifi),
          m_proxies(proxies),
          m_location(location) {}

    std::optional<std::string> primaryInterface() override;
    /// The name of the wireless network if the interface is the wireless one, else the interface's own.
    std::optional<std::string> networkName(const std::optional<std::string>& bsd) override;
    /// Megabits per second.
    std::optional<double> linkSpeed(const std::optional<std::string>& bsd) override;
    std::optional<std::string> interfaceDisplayName(const std::optional<std::string>& bsd) override;
    /// The first four bytes only, "A1:B2:C3:D4": a whole address would identify the machine.
    std::optional<std::string> macAddress(const std::optional<std::string>& bsd) override;
    WifiDetail wifiDetail() override;
    std::optional<std::string> routerAddress() override;
    std::optional<std::string> dnsAddress() override;
    /// The proxy's host without its port, or "PAC".
    std::optional<std::string> proxyDescription() override;
    /// True if a tunnel has an IPv4 address that is no link-local one.
    bool vpnActive() override;

private:
    NetworkConfigurationSource& m_configuration;
    InterfaceAddressSource& m_interfaces;
    WifiSource& m_wifi;
    ProxySettingsSource& m_proxies;
    LocationAuthorization& m_location;
    bool m_locationRequested = false;
};

}  // namespace velmora
