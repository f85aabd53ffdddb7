// The network's adapters on captured machines, where files alone tell.

#include "fakes/FakeNetworkSources.h"
#include "platform/linux/files/SystemTree.h"
#include "platform/linux/network/LinuxInterfaceAddressSource.h"
#include "platform/linux/network/LinuxInterfaceCounterSource.h"
#include "platform/linux/network/LinuxNetworkConfiguration.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <unistd.h>

namespace velmora {
namespace {

std::string fixture(const std::string& machine) {
    return std::string(VELMORA_FIXTURES) + '/' + machine;
}

std::shared_ptr<LinuxLinkTable> linksOf(const std::string& root) {
    return std::make_shared<LinuxLinkTable>(SystemRoot(root));
}

/// A machine whose files a test changes.
class TemporaryMachine {
public:
    explicit TemporaryMachine(const std::string& original = {})
        : m_folder(std::filesystem::temp_directory_path() /
                   ("velmora-machine-" + std::to_string(::getpid()))) {
        std::filesystem::remove_all(m_folder);
        if (original.empty()) {
            std::filesystem::create_directories(m_folder);
        } else {
            std::filesystem::copy(
                fixture(original), m_folder,
                std::filesystem::copy_options::recursive | std::filesystem::copy_options::copy_symlinks);
        }
    }
    ~TemporaryMachine() { std::filesystem::remove_all(m_folder); }
    TemporaryMachine(const TemporaryMachine&) = delete;
    TemporaryMachine& operator=(const TemporaryMachine&) = delete;

    void write(const std::string& path, const std::string& text) {
        std::filesystem::create_directories((m_folder / path).parent_path());
        std::ofstream(m_folder / path, std::ios::binary) << text;
    }
    void remove(const std::string& path) { std::filesystem::remove_all(m_folder / path); }
    std::string root() const { return m_folder.string(); }

private:
    std::filesystem::path m_folder;
};

TEST(LinuxInterfaceCounterSource, ContainerHostCountsHardwareAndTunnelsOnce) {
    LinuxInterfaceCounterSource source(linksOf(fixture("network-container-host")));
    std::vector<InterfaceCounters> interfaces;
    ASSERT_TRUE(source.read(interfaces));
    // Wired, wireless, USB, tun0, wg0, ppp0, sit0 and the modem, in this order.
    EXPECT_EQ(interfaces, (std::vector<InterfaceCounters>{{false, 1000000, 200000},
                                                          {false, 30000, 4000},
                                                          {false, 0, 0},
                                                          {false, 500, 60},
                                                          {false, 7, 8},
                                                          {false, 10, 20},
                                                          {false, 0, 0},
                                                          {false, 100, 200}}));
}

TEST(LinuxInterfaceCounterSource, ContainerWithoutHardwareCountsAllButLoopback) {
    LinuxInterfaceCounterSource source(linksOf(fixture("network-container")));
    std::vector<InterfaceCounters> interfaces;
    ASSERT_TRUE(source.read(interfaces));
    EXPECT_EQ(interfaces, (std::vector<InterfaceCounters>{{false, 4321, 1234}}));
}

TEST(LinuxInterfaceCounterSource, WithoutSysAllButLoopbackCount) {
    TemporaryMachine machine;
    machine.write("proc/net/dev", "lo: 1 0 0 0 0 0 0 0 2\neth0: 30 0 0 0 0 0 0 0 40\n");
    LinuxInterfaceCounterSource source(linksOf(machine.root()));
    std::vector<InterfaceCounters> interfaces;
    ASSERT_TRUE(source.read(interfaces));
    EXPECT_EQ(interfaces, (std::vector<InterfaceCounters>{{false, 30, 40}}));
}

TEST(LinuxInterfaceCounterSource, MissingFileIsAFailure) {
    const TemporaryMachine machine;
    LinuxInterfaceCounterSource source(linksOf(machine.root()));
    std::vector<InterfaceCounters> interfaces;
    EXPECT_FALSE(source.read(interfaces));
}

TEST(LinuxInterfaceCounterSource, DamagedLineLosesItsInterfaceOnly) {
    TemporaryMachine machine("network-container-host");
    machine.write("proc/net/dev", "enp3s0: 5 0 0\nwlp2s0: 7 0 0 0 0 0 0 0 8\n\xFF\xFE: 1 0 0 0 0 0 0 0 1\n");
    LinuxInterfaceCounterSource source(linksOf(machine.root()));
    std::vector<InterfaceCounters> interfaces;
    ASSERT_TRUE(source.read(interfaces));
    EXPECT_EQ(interfaces, (std::vector<InterfaceCounters>{{false, 7, 8}}));
}

TEST(LinuxInterfaceCounterSource, DamagedAttributesLoseTheirInterfaceOnly) {
    TemporaryMachine machine("network-container-host");
    machine.write("sys/class/net/enp3s0/type", std::string(100000, '9'));
    machine.write("sys/class/net/tun0/tun_flags", std::string("\0\0\0\0", 4));
    machine.write("sys/class/net/wg0/uevent", "\xFF\xFE");
    machine.write("sys/class/net/ppp0/ifindex", "");
    LinuxInterfaceCounterSource source(linksOf(machine.root()));
    std::vector<InterfaceCounters> interfaces;
    ASSERT_TRUE(source.read(interfaces));
    EXPECT_TRUE(std::ranges::find(interfaces, InterfaceCounters{false, 30000, 4000}) != interfaces.end());
    EXPECT_TRUE(std::ranges::find(interfaces, InterfaceCounters{false, 1000000, 200000}) == interfaces.end());
}

TEST(LinuxInterfaceCounterSource, NewNameInTheTextIsLookedUp) {
    TemporaryMachine machine("network-container-host");
    machine.remove("sys/class/net/wg0");
    LinuxInterfaceCounterSource source(linksOf(machine.root()));
    std::vector<InterfaceCounters> interfaces;
    ASSERT_TRUE(source.read(interfaces));
    const std::size_t before = interfaces.size();
    machine.write("sys/class/net/wg0/ifindex", "16\n");
    machine.write("sys/class/net/wg0/type", "65534\n");
    ASSERT_TRUE(source.read(interfaces));
    EXPECT_EQ(interfaces.size(), before + 1);
}

TEST(LinuxInterfaceCounterSource, UnpluggedHardwareDoesNotBringTheBridgesIn) {
    TemporaryMachine machine("network-container-host");
    auto links = linksOf(machine.root());
    LinuxInterfaceCounterSource source(links);
    std::vector<InterfaceCounters> interfaces;
    ASSERT_TRUE(source.read(interfaces));
    for (const char* name : {"enp3s0", "wlp2s0", "enx0050b6aabbcc", "tun0", "wg0", "ppp0", "sit0", "wwan0"})
        machine.remove(std::string("sys/class/net/") + name);
    machine.write("proc/net/dev", "lo: 1 0 0 0 0 0 0 0 1\ndocker0: 7 0 0 0 0 0 0 0 8\n");
    ASSERT_TRUE(source.read(interfaces));
    EXPECT_TRUE(interfaces.empty());
}

TEST(LinuxInterfaceAddressSource, ContainerHostsLanIsItsHardware) {
    LinuxInterfaceAddressSource source(linksOf(fixture("network-container-host")));
    for (const char* name : {"enp3s0", "wlp2s0", "enx0050b6aabbcc", "wwan0"})
        EXPECT_TRUE(source.isLanName(name)) << name;
    for (const char* name : {"lo", "docker0", "veth5c1d2e3", "vnet0", "tun0", "wg0", "ppp0", "absent0"})
        EXPECT_FALSE(source.isLanName(name)) << name;
}

TEST(LinuxInterfaceAddressSource, ContainersLanIsItsEthernet) {
    LinuxInterfaceAddressSource source(linksOf(fixture("network-container")));
    EXPECT_TRUE(source.isLanName("eth0"));
    EXPECT_FALSE(source.isLanName("lo"));
}

TEST(LinuxInterfaceAddressSource, TunnelsAreToldByWhatTheyAre) {
    LinuxInterfaceAddressSource source(linksOf(fixture("network-container-host")));
    for (const char* name : {"tun0", "wg0", "ppp0"}) EXPECT_TRUE(source.isTunnelName(name)) << name;
    for (const char* name : {"lo", "vnet0", "sit0", "docker0", "wwan0", "enp3s0", "absent0"})
        EXPECT_FALSE(source.isTunnelName(name)) << name;
}

TEST(LinuxInterfaceAddressSource, LinkHasItsAddressAndSpeed) {
    LinuxInterfaceAddressSource source(linksOf(fixture("network-container-host")));
    EXPECT_EQ(source.links("enp3s0"),
              (std::vector<InterfaceLink>{{{0xA1, 0xB2, 0xC3, 0xD4, 0xE5, 0xF6}, 2500000000}}));
}

TEST(LinuxInterfaceAddressSource, UnknownSpeedIsZero) {
    LinuxInterfaceAddressSource source(linksOf(fixture("network-container-host")));
    EXPECT_EQ(source.links("enx0050b6aabbcc").front().baudRate, 0U) << "-1 while it is down";
    EXPECT_EQ(source.links("wlp2s0").front().baudRate, 0U) << "no such file";
    EXPECT_EQ(source.links("veth5c1d2e3").front().baudRate, 0U) << "no hardware";
}

TEST(LinuxInterfaceAddressSource, AbsurdSpeedIsZero) {
    TemporaryMachine machine("network-container-host");
    for (const char* text : {"4294967295\n", "99999999999999999999\n", "", "fast\n"}) {
        machine.write("sys/class/net/enp3s0/speed", text);
        LinuxInterfaceAddressSource source(linksOf(machine.root()));
        EXPECT_EQ(source.links("enp3s0").front().baudRate, 0U) << text;
    }
}

TEST(LinuxInterfaceAddressSource, FastLinkDoesNotWrap) {
    TemporaryMachine machine("network-container-host");
    machine.write("sys/class/net/enp3s0/speed", "10000\n");
    LinuxInterfaceAddressSource source(linksOf(machine.root()));
    EXPECT_EQ(source.links("enp3s0").front().baudRate, 10000000000U);
}

TEST(LinuxInterfaceAddressSource, AbsentInterfaceHasNoLink) {
    LinuxInterfaceAddressSource source(linksOf(fixture("network-container-host")));
    EXPECT_TRUE(source.links("absent0").empty());
    EXPECT_TRUE(source.links("tun0").front().address.empty());
    EXPECT_TRUE(source.ipv4Addresses().empty()) << "a captured machine has no addresses";
}

class LinuxNetworkConfigurationTest : public testing::Test {
protected:
    std::vector<std::string> servers(const std::string& root) {
        return LinuxNetworkConfiguration(linksOf(root), upstream).nameServers();
    }

    FakeUpstreamNameServers upstream;
};

TEST_F(LinuxNetworkConfigurationTest, DefaultRouteGivesInterfaceAndRouter) {
    LinuxNetworkConfiguration configuration(linksOf(fixture("network-container-host")), upstream);
    EXPECT_EQ(configuration.globalIPv4(), (GlobalIPv4{"enp3s0", "192.0.2.1"}));
}

TEST_F(LinuxNetworkConfigurationTest, MissingTableGivesNeither) {
    const TemporaryMachine machine;
    LinuxNetworkConfiguration configuration(linksOf(machine.root()), upstream);
    EXPECT_EQ(configuration.globalIPv4(), GlobalIPv4{});
    EXPECT_TRUE(configuration.nameServers().empty());
    EXPECT_TRUE(configuration.interfaces().empty());
}

TEST_F(LinuxNetworkConfigurationTest, InterfacesHaveTheirNames) {
    const SystemTree tree;
    tree.show("network-container-host");
    LinuxNetworkConfiguration configuration(std::make_shared<LinuxLinkTable>(tree.root()), upstream);
    const auto nameOf = [interfaces = configuration.interfaces()](const std::string& name) {
        const auto found = std::ranges::find(interfaces, name, &NamedInterface::bsdName);
        return found == interfaces.end() ? std::optional<std::string>("not listed") : found->displayName;
    };
    EXPECT_EQ(nameOf("enp3s0"), "Ethernet");
    EXPECT_EQ(nameOf("wlp2s0"), "Wi-Fi");
    EXPECT_EQ(nameOf("enx0050b6aabbcc"), "USB Ethernet");
    EXPECT_EQ(nameOf("wwan0"), "Cellular");
    EXPECT_EQ(nameOf("docker0"), std::nullopt);
    EXPECT_EQ(nameOf("tun0"), std::nullopt);
}

TEST_F(LinuxNetworkConfigurationTest, StubOfSystemdStandsForItsFirstServer) {
    EXPECT_EQ(servers(fixture("network-container-host")), (std::vector<std::string>{"192.0.2.1"}));
    EXPECT_EQ(upstream.questionCount, 0);
}

TEST_F(LinuxNetworkConfigurationTest, StubWithoutItsFileStandsForItself) {
    TemporaryMachine machine("network-container-host");
    machine.remove("run");
    EXPECT_EQ(servers(machine.root()), (std::vector<std::string>{"127.0.0.53"}));
}

TEST_F(LinuxNetworkConfigurationTest, StubWithoutServersHasNone) {
    TemporaryMachine machine("network-container-host");
    machine.write("run/systemd/resolve/resolv.conf", "# none\n");
    EXPECT_TRUE(servers(machine.root()).empty());
}

TEST_F(LinuxNetworkConfigurationTest, OtherServerOnThisMachineIsAskedAbout) {
    TemporaryMachine machine;
    upstream.servers = {"192.0.2.9", "192.0.2.10"};
    for (const char* local : {"127.0.0.1", "127.0.1.1", "::1"}) {
        machine.write("etc/resolv.conf", std::string("nameserver ") + local + "\n");
        EXPECT_EQ(servers(machine.root()), upstream.servers) << local;
    }
}

TEST_F(LinuxNetworkConfigurationTest, ServerOnThisMachineStandsForItselfWhileNobodyKnows) {
    TemporaryMachine machine;
    machine.write("etc/resolv.conf", "nameserver 127.0.0.1\n");
    EXPECT_EQ(servers(machine.root()), (std::vector<std::string>{"127.0.0.1"}));
}

TEST_F(LinuxNetworkConfigurationTest, ServerElsewhereStandsAsItIs) {
    EXPECT_EQ(servers(fixture("network-container")), (std::vector<std::string>{"192.0.2.53"}));
    EXPECT_EQ(upstream.questionCount, 0);
}

}  // namespace
}  // namespace velmora
