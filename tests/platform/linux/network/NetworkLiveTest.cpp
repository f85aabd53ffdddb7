// The network's adapters against the running kernel, in a network of the test's own.

#include "core/PingMonitor.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeNetworkSources.h"
#include "fakes/FakeRunLoop.h"
#include "platform/linux/loop/LinuxMonotonicClock.h"
#include "platform/linux/loop/ThreadWorkQueue.h"
#include "platform/linux/network/LinuxConnectionProbe.h"
#include "platform/linux/network/LinuxEchoSockets.h"
#include "platform/linux/network/LinuxInterfaceAddressSource.h"
#include "platform/linux/network/LinuxInterfaceCounterSource.h"
#include "platform/linux/network/LinuxNetworkConfiguration.h"
#include "platform/linux/network/NetworkNamespace.h"
#include "platform/linux/network/TunHost.h"
#include "samplers/EchoMessage.h"
#include "samplers/LatencyProbes.h"
#include "samplers/NetworkInfoSampler.h"
#include "samplers/NetworkSampler.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velmora {
namespace {

using namespace std::chrono_literals;
using nlohmann::json;

class NetworkLiveTest : public testing::Test {
protected:
    void SetUp() override {
        // Only root may make networks; everything that stands on captured files is tested without it.
        if (!network.isOpen()) GTEST_SKIP() << "the kernel grants no network of its own to this user";
        links = std::make_shared<LinuxLinkTable>(SystemRoot());
    }

    static void raiseTunnel() {
        NetworkNamespace::run(std::string("ip addr add ") + TunHost::kNear + "/24 dev " + TunHost::kName);
        NetworkNamespace::run(std::string("ip link set ") + TunHost::kName + " up");
    }

    /// Sends datagrams that nobody answers.
    static void sendDatagrams(const char* host, int count) {
        const int descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(9);
        ::inet_pton(AF_INET, host, &address.sin_addr);
        const std::vector<char> data(1000);
        for (int sent = 0; sent < count; ++sent) {
            EXPECT_EQ(::sendto(descriptor, data.data(), data.size(), 0,
                               reinterpret_cast<const sockaddr*>(&address), sizeof address),
                      1000);
        }
        ::close(descriptor);
    }

    /// What the kernel's own tool says about the interfaces of these names.
    static NetworkTotals toolTotals(const std::vector<std::string>& names) {
        NetworkTotals totals;
        for (const json& link : json::parse(NetworkNamespace::run("ip -s -j link"))) {
            if (std::ranges::find(names, link["ifname"].get<std::string>()) == names.end()) continue;
            totals.down += link["stats64"]["rx"]["bytes"].get<std::uint64_t>();
            totals.up += link["stats64"]["tx"]["bytes"].get<std::uint64_t>();
        }
        return totals;
    }

    NetworkTotals totals() {
        LinuxInterfaceCounterSource source(links);
        FakeInterfaceAddressSource none;
        return NetworkSampler(source, none).counters();
    }

    /// The same by files alone, as where netlink is refused.
    static NetworkTotals totalsFromFiles() {
        const auto folder =
            std::filesystem::temp_directory_path() / ("velmora-network-" + std::to_string(::getpid()));
        std::filesystem::create_directory(folder);
        std::filesystem::create_directory_symlink("/proc", folder / "proc");
        std::filesystem::create_directory_symlink("/sys", folder / "sys");
        LinuxInterfaceCounterSource source(std::make_shared<LinuxLinkTable>(SystemRoot(folder.string())));
        FakeInterfaceAddressSource none;
        const NetworkTotals totals = NetworkSampler(source, none).counters();
        std::filesystem::remove(folder / "proc");
        std::filesystem::remove(folder / "sys");
        std::filesystem::remove(folder);
        return totals;
    }

    NetworkNamespace network;
    std::shared_ptr<LinuxLinkTable> links;
    FakeUpstreamNameServers upstream;
};

// Counters stand still between the reads, so the figures agree to the byte.

TEST_F(NetworkLiveTest, TunnelTrafficAgreesWithTheKernelsTool) {
    const TunHost host(0ms);
    ASSERT_TRUE(host.isOpen());
    raiseTunnel();
    sendDatagrams(TunHost::kSilent, 50);
    ASSERT_TRUE(host.waitForPackets(50));
    const NetworkTotals seen = totals();
    EXPECT_EQ(seen, toolTotals({TunHost::kName}));
    EXPECT_EQ(seen.up, 50U * 1028U);
    EXPECT_EQ(totalsFromFiles(), seen);
}

// One read of the text gives no more lines than fit into a page, which held some thirty interfaces.
TEST_F(NetworkLiveTest, InterfacesBeyondAPageOfTextAreCountedToo) {
    NetworkNamespace::run("for n in $(seq 60); do ip tuntap add mode tun name other$n || exit 1; done");
    const TunHost host(0ms);
    ASSERT_TRUE(host.isOpen());
    raiseTunnel();
    sendDatagrams(TunHost::kSilent, 50);
    ASSERT_TRUE(host.waitForPackets(50));
    EXPECT_EQ(totalsFromFiles(), toolTotals({TunHost::kName}));
}

TEST_F(NetworkLiveTest, LoopbackTrafficAddsNothing) {
    const TunHost host(0ms);
    ASSERT_TRUE(host.isOpen());
    raiseTunnel();
    sendDatagrams("127.0.0.1", 50);
    EXPECT_GT(toolTotals({"lo"}).up, 50000U);
    EXPECT_EQ(totals(), (NetworkTotals{0, 0}));
}

TEST_F(NetworkLiveTest, BridgesAndVethPairsAddNothingBesideATunnel) {
    const TunHost host(0ms);
    ASSERT_TRUE(host.isOpen());
    raiseTunnel();
    NetworkNamespace::run("ip link add vma type veth peer name vmb");
    NetworkNamespace::run("ip link add bridgevm type bridge");
    NetworkNamespace::run("ip link set vmb master bridgevm");
    for (const char* name : {"vma", "vmb", "bridgevm"})
        NetworkNamespace::run(std::string("ip link set ") + name + " up");
    NetworkNamespace::run("ip addr add 203.0.113.1/24 dev vma");
    NetworkNamespace::run("ip neigh add 203.0.113.9 lladdr 02:00:00:00:00:09 dev vma");
    sendDatagrams("203.0.113.9", 20);
    sendDatagrams(TunHost::kSilent, 5);
    ASSERT_TRUE(host.waitForPackets(5));
    EXPECT_GT(toolTotals({"vma"}).up, 20000U);
    EXPECT_GT(toolTotals({"vmb", "bridgevm"}).down, 20000U);
    EXPECT_EQ(totals(), toolTotals({TunHost::kName}));
    EXPECT_EQ(totalsFromFiles(), totals());
}

TEST_F(NetworkLiveTest, ContainerWithoutHardwareCountsAllButLoopback) {
    NetworkNamespace::run("ip link add vma type veth peer name vmb");
    for (const char* name : {"vma", "vmb"}) NetworkNamespace::run(std::string("ip link set ") + name + " up");
    NetworkNamespace::run("ip addr add 203.0.113.1/24 dev vma");
    NetworkNamespace::run("ip neigh add 203.0.113.9 lladdr 02:00:00:00:00:09 dev vma");
    sendDatagrams("203.0.113.9", 20);
    sendDatagrams("127.0.0.1", 20);
    const NetworkTotals seen = totals();
    EXPECT_GT(seen.up, 20000U);
    EXPECT_EQ(seen, toolTotals({"vma", "vmb"}));
    EXPECT_EQ(totalsFromFiles(), seen);
}

TEST_F(NetworkLiveTest, RateIsTheGrowthOverTheInterval) {
    const TunHost host(0ms);
    ASSERT_TRUE(host.isOpen());
    raiseTunnel();
    LinuxInterfaceCounterSource source(links);
    LinuxInterfaceAddressSource addresses(links);
    NetworkSampler sampler(source, addresses);
    sampler.sample(0);
    sendDatagrams(TunHost::kSilent, 10);
    ASSERT_TRUE(host.waitForPackets(10));
    EXPECT_DOUBLE_EQ(sampler.sample(2).upPerSec, 10 * 1028 / 2.0);
    EXPECT_DOUBLE_EQ(sampler.sample(2).upPerSec, 0);
}

TEST_F(NetworkLiveTest, InterfaceThatComesLaterIsCountedFromItsFirstRead) {
    LinuxInterfaceCounterSource source(links);
    std::vector<InterfaceCounters> interfaces;
    ASSERT_TRUE(source.read(interfaces));
    EXPECT_TRUE(interfaces.empty());
    const TunHost host(0ms);
    ASSERT_TRUE(host.isOpen());
    raiseTunnel();
    sendDatagrams(TunHost::kSilent, 3);
    ASSERT_TRUE(host.waitForPackets(3));
    ASSERT_TRUE(source.read(interfaces));
    ASSERT_EQ(interfaces.size(), 1U);
    EXPECT_EQ(interfaces.front().sentBytes, 3U * 1028U);
}

TEST_F(NetworkLiveTest, RenamedInterfaceIsFollowed) {
    NetworkNamespace::run("ip link add vma type veth peer name vmb");
    EXPECT_NE(links->find("vma"), nullptr);
    NetworkNamespace::run("ip link set vma name vmx");
    EXPECT_EQ(links->find("vma"), nullptr);
    EXPECT_NE(links->find("vmx"), nullptr);
}

TEST_F(NetworkLiveTest, MoreNewsThanFitAreNotMissed) {
    LinuxInterfaceCounterSource source(links);
    std::vector<InterfaceCounters> interfaces;
    ASSERT_TRUE(source.read(interfaces));
    NetworkNamespace::run("for i in $(seq 400); do ip link set lo mtu $((65000 + i)); done");
    NetworkNamespace::run("ip link add vma type veth peer name vmb");
    ASSERT_TRUE(source.read(interfaces));
    EXPECT_EQ(interfaces.size(), 2U);
}

TEST_F(NetworkLiveTest, LocalAddressIsThatOfTheContainersEthernet) {
    const TunHost host(0ms);
    ASSERT_TRUE(host.isOpen());
    raiseTunnel();
    NetworkNamespace::run("ip link add vmb type veth peer name vma");
    NetworkNamespace::run("ip link set vma up");
    NetworkNamespace::run("ip link set vmb up");
    NetworkNamespace::run("ip addr add 203.0.113.2/24 dev vmb");
    NetworkNamespace::run("ip addr add 203.0.113.1/24 dev vma");
    LinuxInterfaceCounterSource source(links);
    LinuxInterfaceAddressSource addresses(links);
    NetworkSampler sampler(source, addresses);
    EXPECT_EQ(sampler.localIPAddress(), "203.0.113.1") << "the smaller name";
    NetworkNamespace::run("ip link set vma down");
    EXPECT_EQ(sampler.localIPAddress(), "203.0.113.2");
    NetworkNamespace::run("ip link del vma");
    EXPECT_EQ(sampler.localIPAddress(), std::nullopt) << "a tunnel gives none";
}

class NetworkDetailsLiveTest : public NetworkLiveTest {
protected:
    NetworkInfoSampler& sampler() {
        if (!m_sampler) {
            m_addresses = std::make_unique<LinuxInterfaceAddressSource>(links);
            m_configuration = std::make_unique<LinuxNetworkConfiguration>(links, upstream);
            m_sampler = std::make_unique<NetworkInfoSampler>(*m_configuration, *m_addresses, m_wifi,
                                                             m_proxies, m_location);
        }
        return *m_sampler;
    }

private:
    FakeWifiSource m_wifi;
    FakeProxySettingsSource m_proxies;
    FakeLocationAuthorization m_location;
    std::unique_ptr<LinuxInterfaceAddressSource> m_addresses;
    std::unique_ptr<LinuxNetworkConfiguration> m_configuration;
    std::unique_ptr<NetworkInfoSampler> m_sampler;
};

TEST_F(NetworkDetailsLiveTest, NoDefaultRouteGivesNoPrimaryInterface) {
    EXPECT_EQ(sampler().primaryInterface(), std::nullopt);
    EXPECT_EQ(sampler().routerAddress(), std::nullopt);
}

TEST_F(NetworkDetailsLiveTest, LowestMetricWins) {
    const TunHost host(0ms);
    ASSERT_TRUE(host.isOpen());
    raiseTunnel();
    NetworkNamespace::run("ip route add default via 198.51.100.2 metric 600");
    NetworkNamespace::run("ip route add default via 198.51.100.9 metric 100");
    NetworkNamespace::run("ip route add default via 198.51.100.7 metric 50 table 77");
    EXPECT_EQ(sampler().primaryInterface(), TunHost::kName);
    EXPECT_EQ(sampler().routerAddress(), "198.51.100.9");
}

TEST_F(NetworkDetailsLiveTest, PointToPointRouteHasNoRouter) {
    const TunHost host(0ms);
    ASSERT_TRUE(host.isOpen());
    raiseTunnel();
    NetworkNamespace::run(std::string("ip route add default dev ") + TunHost::kName);
    EXPECT_EQ(sampler().primaryInterface(), TunHost::kName);
    EXPECT_EQ(sampler().routerAddress(), std::nullopt);
}

TEST_F(NetworkDetailsLiveTest, UnreachableRouteIsNone) {
    NetworkNamespace::run("ip route add unreachable default");
    EXPECT_EQ(sampler().primaryInterface(), std::nullopt);
}

TEST_F(NetworkDetailsLiveTest, FirstHopOfSeveralIsTaken) {
    const TunHost host(0ms);
    ASSERT_TRUE(host.isOpen());
    raiseTunnel();
    NetworkNamespace::run("ip route add default nexthop via 198.51.100.5 nexthop via 198.51.100.6");
    EXPECT_EQ(sampler().routerAddress(), "198.51.100.5");
}

TEST_F(NetworkDetailsLiveTest, SharedNextHopIsFollowed) {
    const TunHost host(0ms);
    ASSERT_TRUE(host.isOpen());
    raiseTunnel();
    // Without this the kernel repeats the next hop in the route itself.
    NetworkNamespace::write("/proc/sys/net/ipv4/nexthop_compat_mode", "0");
    NetworkNamespace::run(std::string("ip nexthop add id 7 via 198.51.100.5 dev ") + TunHost::kName);
    NetworkNamespace::run("ip nexthop add id 9 group 7");
    NetworkNamespace::run("ip route add default nhid 7 metric 10");
    EXPECT_EQ(sampler().primaryInterface(), TunHost::kName);
    EXPECT_EQ(sampler().routerAddress(), "198.51.100.5");
    NetworkNamespace::run("ip route add default nhid 9 metric 5");
    EXPECT_EQ(sampler().primaryInterface(), TunHost::kName);
    EXPECT_EQ(sampler().routerAddress(), "198.51.100.5");
}

TEST_F(NetworkDetailsLiveTest, RouterOfTheOtherFamilyIsNamed) {
    NetworkNamespace::write("/proc/sys/net/ipv6/conf/all/disable_ipv6", "0");
    NetworkNamespace::write("/proc/sys/net/ipv6/conf/default/disable_ipv6", "0");
    NetworkNamespace::run("ip link add vma type veth peer name vmb");
    NetworkNamespace::run("ip link set vma up");
    NetworkNamespace::run("ip link set vmb up");
    NetworkNamespace::run("ip -4 route add default via inet6 fe80::1 dev vma");
    EXPECT_EQ(sampler().primaryInterface(), "vma");
    EXPECT_EQ(sampler().routerAddress(), "fe80::1");
}

TEST_F(NetworkDetailsLiveTest, LinkLayerAddressIsCutToFourBytes) {
    NetworkNamespace::run("ip link add vma address a2:b2:c3:d4:e5:f6 type veth peer name vmb");
    EXPECT_EQ(sampler().macAddress("vma"), "A2:B2:C3:D4");
    EXPECT_EQ(sampler().macAddress("lo"), "00:00:00:00");
    EXPECT_EQ(sampler().macAddress("absent0"), std::nullopt);
    const TunHost host(0ms);
    ASSERT_TRUE(host.isOpen());
    EXPECT_EQ(sampler().macAddress(TunHost::kName), std::nullopt) << "a tunnel has no such address";
}

TEST_F(NetworkDetailsLiveTest, FancySpeedOfAnInterfaceWithoutHardwareIsUnknown) {
    NetworkNamespace::run("ip link add vma type veth peer name vmb");
    NetworkNamespace::run("ip link set vma up");
    NetworkNamespace::run("ip link set vmb up");
    EXPECT_EQ(NetworkNamespace::run("cat /sys/class/net/vma/speed"), "10000\n");
    EXPECT_EQ(sampler().linkSpeed("vma"), std::nullopt);
}

TEST_F(NetworkDetailsLiveTest, TunnelWithAnAddressIsAVpn) {
    const TunHost host(0ms);
    ASSERT_TRUE(host.isOpen());
    EXPECT_FALSE(sampler().vpnActive());
    NetworkNamespace::run(std::string("ip addr add 169.254.7.7/16 dev ") + TunHost::kName);
    EXPECT_FALSE(sampler().vpnActive());
    NetworkNamespace::run(std::string("ip addr add 198.51.100.1/24 dev ") + TunHost::kName);
    EXPECT_TRUE(sampler().vpnActive());
}

TEST_F(NetworkDetailsLiveTest, VirtualMachinesTapIsNoVpn) {
    NetworkNamespace::run("ip tuntap add dev tapvm mode tap");
    NetworkNamespace::run("ip addr add 198.51.100.1/24 dev tapvm");
    EXPECT_FALSE(sampler().vpnActive());
}

class LatencyLiveTest : public NetworkLiveTest {
protected:
    std::optional<double> result(const std::function<void(PingCompletion)>& probe) {
        std::promise<std::optional<double>> promise;
        auto future = promise.get_future();
        probe([&promise](std::optional<double> milliseconds) { promise.set_value(milliseconds); });
        return future.get();
    }
    std::optional<double> ping(const char* host) {
        return result(
            [&](PingCompletion completion) { probes(host).icmpPing(host, 1.0, std::move(completion)); });
    }
    std::optional<double> connect(const char* host) {
        return result([&](PingCompletion completion) { probes(host).measurePing(std::move(completion)); });
    }
    LatencyProbes& probes(const char* address) {
        m_probes.push_back(
            std::make_unique<LatencyProbes>(address, m_worker, m_sockets, m_connections, m_clock));
        return *m_probes.back();
    }

    LinuxMonotonicClock m_clock;
    LinuxEchoSockets m_sockets;
    LinuxConnectionProbe m_connections;
    ThreadWorkQueue m_worker;
    std::vector<std::unique_ptr<LatencyProbes>> m_probes;
};

/// The median of a few, since a busy machine delays single ones.
double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

TEST_F(LatencyLiveTest, EchoComesWithinAFifthOfTheDelay) {
    NetworkNamespace::grantEchoSockets();
    const TunHost host(50ms);
    ASSERT_TRUE(host.isOpen());
    raiseTunnel();
    std::vector<double> seen;
    for (int probe = 0; probe < 7; ++probe) {
        const auto milliseconds = ping(TunHost::kAnswering);
        ASSERT_TRUE(milliseconds);
        seen.push_back(*milliseconds);
    }
    EXPECT_NEAR(median(seen), 50, 10);
}

TEST_F(LatencyLiveTest, ConnectionComesWithinAFifthOfTheDelay) {
    const TunHost host(50ms);
    ASSERT_TRUE(host.isOpen());
    raiseTunnel();
    std::vector<double> seen;
    for (int probe = 0; probe < 7; ++probe) {
        const auto milliseconds = connect(TunHost::kAnswering);
        ASSERT_TRUE(milliseconds);
        seen.push_back(*milliseconds);
    }
    EXPECT_NEAR(median(seen), 50, 10);
}

TEST_F(LatencyLiveTest, HostThatDropsGivesALoss) {
    NetworkNamespace::grantEchoSockets();
    const TunHost host(0ms);
    ASSERT_TRUE(host.isOpen());
    raiseTunnel();
    const double start = m_clock.seconds();
    EXPECT_EQ(ping(TunHost::kSilent), std::nullopt);
    EXPECT_GE(m_clock.seconds() - start, 1.0) << "the whole timeout passes first";
}

TEST_F(LatencyLiveTest, ConnectionToAHostThatDropsEndsAfterThreeSeconds) {
    const TunHost host(0ms);
    ASSERT_TRUE(host.isOpen());
    raiseTunnel();
    const double start = m_clock.seconds();
    EXPECT_EQ(connect(TunHost::kSilent), std::nullopt);
    EXPECT_GE(m_clock.seconds() - start, 3.0);
}

TEST_F(LatencyLiveTest, RefusedConnectionGivesNone) {
    EXPECT_EQ(connect("127.0.0.1"), std::nullopt);
}

TEST_F(LatencyLiveTest, HostWithoutARouteGivesNone) {
    NetworkNamespace::grantEchoSockets();
    EXPECT_EQ(ping("192.0.2.1"), std::nullopt);
    EXPECT_EQ(connect("192.0.2.1"), std::nullopt);
}

TEST_F(LatencyLiveTest, NameInsteadOfAnAddressGivesNone) {
    NetworkNamespace::grantEchoSockets();
    EXPECT_EQ(ping("localhost"), std::nullopt);
    EXPECT_EQ(connect("localhost"), std::nullopt);
}

TEST_F(LatencyLiveTest, RefusedSocketsFailWhereTheConnectionAnswers) {
    const TunHost host(5ms);
    ASSERT_TRUE(host.isOpen());
    raiseTunnel();
    for (int probe = 0; probe < 3; ++probe) EXPECT_EQ(ping(TunHost::kAnswering), std::nullopt);
    EXPECT_TRUE(connect(TunHost::kAnswering));
}

class MonitoredLatencyLiveTest : public LatencyLiveTest {
protected:
    /// One probe of the engine's, six virtual seconds after the one before, with its outcome taken in.
    void sample(PingMonitor& monitor) {
        m_now = m_now + 6;
        monitor.sample(m_now, stats);
        ASSERT_TRUE(loop.waitForPost());
        loop.runPosted();
        // Another look within five seconds sends nothing and shows the outcome.
        monitor.sample(m_now, stats);
    }

    FakeClock virtualClock;
    FakeRunLoop loop{virtualClock};
    NetworkStats stats;

private:
    Date m_now{1000};
};

TEST_F(MonitoredLatencyLiveTest, RefusedSocketsSwitchToTheConnectionAfterThreeFailures) {
    const TunHost host(50ms);
    ASSERT_TRUE(host.isOpen());
    raiseTunnel();
    LatencyProbes& real = probes(TunHost::kAnswering);
    PingMonitor monitor(loop, real.icmpProbe(), real.connectionProbe());
    for (int probe = 0; probe < 3; ++probe) {
        sample(monitor);
        EXPECT_EQ(stats.pingMs, std::nullopt);
    }
    sample(monitor);
    ASSERT_TRUE(stats.pingMs);
    EXPECT_GE(*stats.pingMs, 50);
    EXPECT_EQ(stats.lossPct, std::nullopt);
}

TEST_F(MonitoredLatencyLiveTest, HostThatAnswersGivesNoLoss) {
    NetworkNamespace::grantEchoSockets();
    const TunHost host(20ms);
    ASSERT_TRUE(host.isOpen());
    raiseTunnel();
    LatencyProbes& real = probes(TunHost::kAnswering);
    PingMonitor monitor(loop, real.icmpProbe(), real.connectionProbe());
    for (int probe = 0; probe < 6; ++probe) sample(monitor);
    EXPECT_GE(stats.pingMs.value_or(0), 20);
    EXPECT_EQ(stats.lossPct, 0);
}

TEST_F(MonitoredLatencyLiveTest, HostThatDropsNowAndThenGivesItsLoss) {
    NetworkNamespace::grantEchoSockets();
    const TunHost host(1ms);
    ASSERT_TRUE(host.isOpen());
    raiseTunnel();
    LatencyProbes& real = probes(TunHost::kAnswering);
    int sent = 0;
    const PingProbe sometimes = [&](PingCompletion completion) {
        const bool drops = ++sent % 4 == 0;
        real.icmpPing(drops ? TunHost::kSilent : TunHost::kAnswering, 1, std::move(completion));
    };
    PingMonitor monitor(loop, sometimes, real.connectionProbe());
    for (int probe = 0; probe < 8; ++probe) sample(monitor);
    EXPECT_EQ(stats.lossPct, 25);
}

TEST_F(LatencyLiveTest, ReplyLooksAsItDidOnTheWire) {
    NetworkNamespace::grantEchoSockets();
    const auto socket = m_sockets.open(1);
    ASSERT_TRUE(socket);
    const EchoMessage::Request request = EchoMessage::request(0x1234);
    ASSERT_TRUE(socket->send("127.0.0.1", request));
    std::array<std::uint8_t, 512> buffer{};
    const std::size_t length = socket->receive(buffer);
    ASSERT_EQ(length, 36U);
    EXPECT_TRUE(EchoMessage::isReply(std::span(buffer).first(length), 0x1234));
    EXPECT_EQ(EchoMessage::icmpChecksum(std::span(buffer).subspan(20, 16)), 0);
}

TEST_F(LatencyLiveTest, ProbeUnderWayEndsWithTheProgram) {
    NetworkNamespace::grantEchoSockets();
    const TunHost host(0ms);
    ASSERT_TRUE(host.isOpen());
    raiseTunnel();
    std::promise<std::optional<double>> promise;
    auto ended = promise.get_future();
    probes(TunHost::kSilent).icmpPing(TunHost::kSilent, 60, [&promise](std::optional<double> milliseconds) {
        promise.set_value(milliseconds);
    });
    m_probes.clear();
    ASSERT_EQ(ended.wait_for(10s), std::future_status::ready);
    EXPECT_EQ(ended.get(), std::nullopt);
}

}  // namespace
}  // namespace velmora
