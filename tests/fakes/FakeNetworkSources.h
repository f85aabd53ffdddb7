#pragma once

#include "platform/InterfaceAddressSource.h"
#include "platform/InterfaceCounterSource.h"
#include "platform/LatencyPorts.h"
#include "platform/MonotonicClock.h"
#include "platform/NetworkConfigurationSource.h"
#include "platform/UpstreamNameServers.h"
#include "platform/WifiSource.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// Sources of the network figures with settable answers.

namespace velmora {

class FakeInterfaceCounterSource final : public InterfaceCounterSource {
public:
    bool read(std::vector<InterfaceCounters>& into) override {
        if (fails) return false;
        into = interfaces;
        return true;
    }

    std::vector<InterfaceCounters> interfaces;
    bool fails = false;
};

/// Names are judged as on the program's first home.
class FakeInterfaceAddressSource final : public InterfaceAddressSource {
public:
    std::vector<InterfaceAddress> ipv4Addresses() override { return addresses; }
    std::vector<InterfaceLink> links(const std::string& name) override { return linksByName[name]; }
    bool isLanName(std::string_view name) override { return name.starts_with("en"); }
    bool isTunnelName(std::string_view name) override {
        return name.starts_with("utun") || name.starts_with("ppp") || name.starts_with("ipsec");
    }

    std::vector<InterfaceAddress> addresses;
    std::map<std::string, std::vector<InterfaceLink>> linksByName;
};

class FakeNetworkConfigurationSource final : public NetworkConfigurationSource {
public:
    GlobalIPv4 globalIPv4() override { return global; }
    std::vector<std::string> nameServers() override { return servers; }
    std::vector<NamedInterface> interfaces() override { return named; }

    GlobalIPv4 global;
    std::vector<std::string> servers;
    std::vector<NamedInterface> named;
};

class FakeProxySettingsSource final : public ProxySettingsSource {
public:
    std::optional<ProxySettings> read() override { return settings; }

    std::optional<ProxySettings> settings;
};

class FakeWifiSource final : public WifiSource {
public:
    std::optional<WifiInterface> defaultInterface() override { return interface; }

    std::optional<WifiInterface> interface;
};

class FakeLocationAuthorization final : public LocationAuthorization {
public:
    int status() override { return currentStatus; }
    void requestWhenInUse() override { ++requestCount; }

    int currentStatus = 0;
    int requestCount = 0;
};

class FakeUpstreamNameServers final : public UpstreamNameServers {
public:
    std::vector<std::string> latest() override {
        ++questionCount;
        return servers;
    }

    std::vector<std::string> servers;
    int questionCount = 0;
};

class FakeMonotonicClock final : public MonotonicClock {
public:
    double seconds() const override { return now; }

    double now = 1000;
};

/// One socket after the other from the same script.
class FakeEchoSocketFactory final : public EchoSocketFactory {
public:
    explicit FakeEchoSocketFactory(FakeMonotonicClock& clock) : m_clock(clock) {}

    std::unique_ptr<EchoSocket> open(int timeoutSeconds) override {
        lastTimeout = timeoutSeconds;
        if (refuses) return nullptr;
        ++openCount;
        return std::make_unique<Socket>(*this);
    }

    void interrupt() override { ++interruptCount; }

    int interruptCount = 0;
    bool refuses = false;
    bool sends = true;
    double replyAfter = 0.0125;  ///< Seconds of the clock.
    /// What the receive gives for what was sent.
    std::function<std::vector<std::uint8_t>(std::vector<std::uint8_t>)> reply;
    std::string lastHost;
    std::vector<std::uint8_t> lastMessage;
    std::optional<int> lastTimeout;
    int openCount = 0;
    int closeCount = 0;
    int receiveCount = 0;

private:
    class Socket final : public EchoSocket {
    public:
        explicit Socket(FakeEchoSocketFactory& owner) : m_owner(owner) {}
        ~Socket() override { ++m_owner.closeCount; }
        bool send(const std::string& host, std::span<const std::uint8_t> message) override {
            m_owner.lastHost = host;
            m_owner.lastMessage.assign(message.begin(), message.end());
            return m_owner.sends;
        }
        std::size_t receive(std::span<std::uint8_t> buffer) override {
            ++m_owner.receiveCount;
            m_owner.m_clock.now += m_owner.replyAfter;
            if (!m_owner.reply) return 0;
            const std::vector<std::uint8_t> datagram = m_owner.reply(m_owner.lastMessage);
            const std::size_t length = std::min(buffer.size(), datagram.size());
            std::copy_n(datagram.begin(), length, buffer.begin());
            return length;
        }

    private:
        FakeEchoSocketFactory& m_owner;
    };

    FakeMonotonicClock& m_clock;
};

class FakeConnectionProbe final : public ConnectionProbe {
public:
    explicit FakeConnectionProbe(FakeMonotonicClock& clock) : m_clock(clock) {}

    void run(const std::string& host, std::uint16_t port, double timeoutSeconds,
             const std::function<void(ConnectionState)>& tell) override {
        lastHost = host;
        lastPort = port;
        lastTimeout = timeoutSeconds;
        for (const auto& [after, state] : script) {
            m_clock.now += after;
            tell(state);
        }
    }
    void interrupt() override { ++interruptCount; }

    int interruptCount = 0;

    /// Seconds since the state before, and the state.
    std::vector<std::pair<double, ConnectionState>> script;
    std::string lastHost;
    std::uint16_t lastPort = 0;
    double lastTimeout = 0;

private:
    FakeMonotonicClock& m_clock;
};

}  // namespace velmora
