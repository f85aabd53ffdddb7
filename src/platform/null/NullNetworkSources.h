#pragma once

#include "platform/InterfaceAddressSource.h"
#include "platform/InterfaceCounterSource.h"
#include "platform/LatencyPorts.h"
#include "platform/MonotonicClock.h"
#include "platform/NetworkConfigurationSource.h"
#include "platform/UpstreamNameServers.h"
#include "platform/WifiSource.h"

// A machine without a network.

namespace velmora {

class NullInterfaceCounterSource final : public InterfaceCounterSource {
public:
    bool read(std::vector<InterfaceCounters>&) override { return false; }
};

class NullInterfaceAddressSource final : public InterfaceAddressSource {
public:
    std::vector<InterfaceAddress> ipv4Addresses() override { return {}; }
    std::vector<InterfaceLink> links(const std::string&) override { return {}; }
    bool isLanName(std::string_view) override { return false; }
    bool isTunnelName(std::string_view) override { return false; }
};

class NullNetworkConfigurationSource final : public NetworkConfigurationSource {
public:
    GlobalIPv4 globalIPv4() override { return {}; }
    std::vector<std::string> nameServers() override { return {}; }
    std::vector<NamedInterface> interfaces() override { return {}; }
};

class NullProxySettingsSource final : public ProxySettingsSource {
public:
    std::optional<ProxySettings> read() override { return std::nullopt; }
};

class NullWifiSource final : public WifiSource {
public:
    std::optional<WifiInterface> defaultInterface() override { return std::nullopt; }
};

class NullUpstreamNameServers final : public UpstreamNameServers {
public:
    std::vector<std::string> latest() override { return {}; }
};

/// A system that hides nothing asks nothing.
class NullLocationAuthorization final : public LocationAuthorization {
public:
    int status() override { return kAuthorized; }
    void requestWhenInUse() override {}

private:
    static constexpr int kAuthorized = 3;
};

class NullEchoSocketFactory final : public EchoSocketFactory {
public:
    std::unique_ptr<EchoSocket> open(int) override { return nullptr; }
    void interrupt() override {}
};

class NullConnectionProbe final : public ConnectionProbe {
public:
    void run(const std::string&, std::uint16_t, double,
             const std::function<void(ConnectionState)>& tell) override {
        tell(ConnectionState::failed);
    }
    void interrupt() override {}
};

/// A clock that stands still.
class NullMonotonicClock final : public MonotonicClock {
public:
    double seconds() const override { return 0; }
};

}  // namespace velmora
