#include "samplers/NetworkInfoSampler.h"

#include "fakes/FakeNetworkSources.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace velmora {
namespace {

class NetworkInfoSamplerTest : public testing::Test {
protected:
    /// An associated wireless interface "en1".
    WifiInterface& haveWifi() {
        WifiInterface wifi;
        wifi.name = "en1";
        wifi.ssid = "Harbour";
        wifi.isPoweredOn = true;
        wifi.channel = WifiChannel{.band = 2, .number = 36};
        wifi.rssi = -55;
        wifi.phyMode = 6;
        wifi.transmitRate = 866.7;
        source.interface = wifi;
        return *source.interface;
    }
    void haveAddress(std::string name, std::optional<std::string> text) {
        interfaces.addresses.push_back(
            {.name = std::move(name), .isUp = false, .isLoopback = false, .text = std::move(text)});
    }
    std::optional<std::string> phy(int mode, int band) {
        WifiInterface& wifi = haveWifi();
        wifi.phyMode = mode;
        wifi.channel->band = band;
        return sampler.wifiDetail().phy;
    }

    FakeNetworkConfigurationSource configuration;
    FakeInterfaceAddressSource interfaces;
    FakeWifiSource source;
    FakeProxySettingsSource proxies;
    FakeLocationAuthorization location;
    NetworkInfoSampler sampler{configuration, interfaces, source, proxies, location};
};

TEST_F(NetworkInfoSamplerTest, PrimaryInterfaceAndRouterAreTakenAsTheyStand) {
    configuration.global = {.primaryInterface = "en0", .router = "192.0.2.1"};
    EXPECT_EQ(sampler.primaryInterface(), "en0");
    EXPECT_EQ(sampler.routerAddress(), "192.0.2.1");
}

TEST_F(NetworkInfoSamplerTest, NothingKnownGivesNothing) {
    EXPECT_EQ(sampler.primaryInterface(), std::nullopt);
    EXPECT_EQ(sampler.routerAddress(), std::nullopt);
    EXPECT_EQ(sampler.dnsAddress(), std::nullopt);
    EXPECT_EQ(sampler.networkName(std::nullopt), std::nullopt);
    EXPECT_EQ(sampler.linkSpeed(std::nullopt), std::nullopt);
    EXPECT_EQ(sampler.interfaceDisplayName(std::nullopt), std::nullopt);
    EXPECT_EQ(sampler.macAddress(std::nullopt), std::nullopt);
    EXPECT_EQ(sampler.proxyDescription(), std::nullopt);
    EXPECT_FALSE(sampler.vpnActive());
}

TEST_F(NetworkInfoSamplerTest, FirstNameServerIsTaken) {
    configuration.servers = {"192.0.2.53", "192.0.2.54"};
    EXPECT_EQ(sampler.dnsAddress(), "192.0.2.53");
}

TEST_F(NetworkInfoSamplerTest, NoInterfaceWithWifiAssociatedGivesTheSsid) {
    haveWifi();
    EXPECT_EQ(sampler.networkName(std::nullopt), "Harbour");
}

TEST_F(NetworkInfoSamplerTest, WifiThatIsPrimaryGivesTheSsid) {
    haveWifi();
    configuration.named = {{"en1", "Wi-Fi"}};
    EXPECT_EQ(sampler.networkName("en1"), "Harbour");
}

TEST_F(NetworkInfoSamplerTest, WifiThatIsNotPrimaryGivesTheOtherInterfacesName) {
    haveWifi();
    configuration.named = {{"en1", "Wi-Fi"}, {"en5", "Desk Adapter"}};
    EXPECT_EQ(sampler.networkName("en5"), "Desk Adapter");
}

TEST_F(NetworkInfoSamplerTest, HiddenSsidGivesTheSystemsName) {
    haveWifi().ssid = std::nullopt;
    configuration.named = {{"en1", "Wi-Fi"}};
    EXPECT_EQ(sampler.networkName("en1"), "Wi-Fi");
}

TEST_F(NetworkInfoSamplerTest, InterfaceWithoutADisplayNameDoesNotStopTheWalk) {
    configuration.named = {{"en0", std::nullopt}, {"en0", "Ethernet"}};
    EXPECT_EQ(sampler.interfaceDisplayName("en0"), "Ethernet");
}

TEST_F(NetworkInfoSamplerTest, UnnamedInterfaceGivesTheKernelsName) {
    configuration.named = {{"en1", "Wi-Fi"}};
    EXPECT_EQ(sampler.interfaceDisplayName("utun4"), "utun4");
    EXPECT_EQ(sampler.networkName("utun4"), "utun4");
}

TEST_F(NetworkInfoSamplerTest, KernelsNameOfForeignBytesIsMadeShowable) {
    EXPECT_EQ(sampler.interfaceDisplayName("e\xFF"), "e\uFFFD");
}

TEST_F(NetworkInfoSamplerTest, WifiRateIsTheLinkSpeed) {
    haveWifi();
    interfaces.linksByName["en1"] = {{.address = {}, .baudRate = 1000000}};
    EXPECT_DOUBLE_EQ(sampler.linkSpeed("en1").value(), 866.7);
}

TEST_F(NetworkInfoSamplerTest, WifiRateOfZeroFallsBackOnTheBaudRate) {
    haveWifi().transmitRate = 0;
    interfaces.linksByName["en1"] = {{.address = {}, .baudRate = 54000000}};
    EXPECT_DOUBLE_EQ(sampler.linkSpeed("en1").value(), 54);
}

TEST_F(NetworkInfoSamplerTest, FirstNonZeroBaudRateIsTheLinkSpeed) {
    interfaces.linksByName["en0"] = {{.address = {}, .baudRate = 0},
                                     {.address = {}, .baudRate = 10000000000}};
    EXPECT_DOUBLE_EQ(sampler.linkSpeed("en0").value(), 10000);
}

TEST_F(NetworkInfoSamplerTest, NoBaudRateGivesNoLinkSpeed) {
    interfaces.linksByName["en0"] = {{.address = {}, .baudRate = 0}};
    EXPECT_EQ(sampler.linkSpeed("en0"), std::nullopt);
    EXPECT_EQ(sampler.linkSpeed("en7"), std::nullopt);
}

TEST_F(NetworkInfoSamplerTest, WifiDetailOfAnAssociatedInterface) {
    haveWifi();
    const WifiDetail detail = sampler.wifiDetail();
    EXPECT_EQ(detail.rssi, -55);
    EXPECT_EQ(detail.phy, "Wi-Fi 6");
    EXPECT_EQ(detail.channel, "36 \u00B7 5 GHz");
    EXPECT_EQ(detail.ssid, "Harbour");
}

void expectNothing(const WifiDetail& detail) {
    EXPECT_EQ(detail.rssi, std::nullopt);
    EXPECT_EQ(detail.phy, std::nullopt);
    EXPECT_EQ(detail.channel, std::nullopt);
    EXPECT_EQ(detail.ssid, std::nullopt);
}

TEST_F(NetworkInfoSamplerTest, NoWifiInterfaceGivesNoDetail) {
    expectNothing(sampler.wifiDetail());
}

TEST_F(NetworkInfoSamplerTest, WifiThatIsOffGivesNoDetail) {
    haveWifi().isPoweredOn = false;
    expectNothing(sampler.wifiDetail());
}

TEST_F(NetworkInfoSamplerTest, WifiThatIsNotAssociatedGivesNoDetail) {
    haveWifi().channel = std::nullopt;
    expectNothing(sampler.wifiDetail());
}

TEST_F(NetworkInfoSamplerTest, Mode6On6GHzIsWifi6E) {
    EXPECT_EQ(phy(6, 3), "Wi-Fi 6E");
    EXPECT_EQ(phy(6, 2), "Wi-Fi 6");
}

TEST_F(NetworkInfoSamplerTest, ModesHaveTheirNames) {
    EXPECT_EQ(phy(0, 2), std::nullopt);
    EXPECT_EQ(phy(1, 2), "Wi-Fi");
    EXPECT_EQ(phy(2, 2), "Wi-Fi");
    EXPECT_EQ(phy(3, 1), "Wi-Fi");
    EXPECT_EQ(phy(4, 1), "Wi-Fi 4");
    EXPECT_EQ(phy(5, 2), "Wi-Fi 5");
    EXPECT_EQ(phy(7, 3), "Wi-Fi 7");
    EXPECT_EQ(phy(8, 2), std::nullopt);
}

TEST_F(NetworkInfoSamplerTest, ChannelOfAnUnknownBandIsTheBareNumber) {
    haveWifi().channel = WifiChannel{.band = 0, .number = 9};
    EXPECT_EQ(sampler.wifiDetail().channel, "9");
}

TEST_F(NetworkInfoSamplerTest, BandsHaveTheirNames) {
    haveWifi().channel = WifiChannel{.band = 1, .number = 11};
    EXPECT_EQ(sampler.wifiDetail().channel, "11 \u00B7 2.4 GHz");
    haveWifi().channel = WifiChannel{.band = 3, .number = 37};
    EXPECT_EQ(sampler.wifiDetail().channel, "37 \u00B7 6 GHz");
}

TEST_F(NetworkInfoSamplerTest, RssiOfZeroIsAbsentWhileTheOthersStay) {
    haveWifi().rssi = 0;
    const WifiDetail detail = sampler.wifiDetail();
    EXPECT_EQ(detail.rssi, std::nullopt);
    EXPECT_EQ(detail.phy, "Wi-Fi 6");
    EXPECT_TRUE(detail.channel);
    EXPECT_TRUE(detail.ssid);
}

TEST_F(NetworkInfoSamplerTest, LocationIsAskedForOnceAndOnlyWhileUndetermined) {
    sampler.wifiDetail();
    EXPECT_EQ(location.requestCount, 0) << "not without an associated interface";
    haveWifi();
    sampler.wifiDetail();
    sampler.wifiDetail();
    EXPECT_EQ(location.requestCount, 1);
}

TEST_F(NetworkInfoSamplerTest, DeterminedLocationIsNeverAskedFor) {
    location.currentStatus = 2;
    haveWifi();
    sampler.wifiDetail();
    location.currentStatus = 0;
    sampler.wifiDetail();
    EXPECT_EQ(location.requestCount, 0) << "it was considered once, which is all";
}

TEST_F(NetworkInfoSamplerTest, NoOtherReadNeedsTheLocation) {
    haveWifi();
    sampler.networkName(std::nullopt);
    sampler.linkSpeed("en1");
    EXPECT_EQ(location.requestCount, 0);
}

TEST_F(NetworkInfoSamplerTest, SixByteAddressShowsItsFirstFourBytes) {
    interfaces.linksByName["en0"] = {{.address = {0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF}, .baudRate = 0}};
    EXPECT_EQ(sampler.macAddress("en0"), "AA:BB:CC:DD");
}

TEST_F(NetworkInfoSamplerTest, AddressBytesHaveTwoDigits) {
    interfaces.linksByName["en0"] = {{.address = {0, 1, 0x0A, 0xF0}, .baudRate = 0}};
    EXPECT_EQ(sampler.macAddress("en0"), "00:01:0A:F0");
}

TEST_F(NetworkInfoSamplerTest, AddressOfThreeBytesIsPassedOver) {
    interfaces.linksByName["en0"] = {{.address = {1, 2, 3}, .baudRate = 0}};
    EXPECT_EQ(sampler.macAddress("en0"), std::nullopt);
    interfaces.linksByName["en0"].push_back({.address = {5, 6, 7, 8}, .baudRate = 0});
    EXPECT_EQ(sampler.macAddress("en0"), "05:06:07:08");
}

TEST_F(NetworkInfoSamplerTest, TunnelWithOnlyALinkLocalAddressIsNoVpn) {
    haveAddress("utun4", "169.254.7.9");
    EXPECT_FALSE(sampler.vpnActive());
}

TEST_F(NetworkInfoSamplerTest, TunnelWithARoutableAddressIsAVpnEvenIfDown) {
    haveAddress("utun4", "169.254.7.9");
    haveAddress("ppp0", "192.0.2.77");
    EXPECT_TRUE(sampler.vpnActive());
}

TEST_F(NetworkInfoSamplerTest, TunnelWithTheUnspecifiedAddressIsNoVpn) {
    haveAddress("ipsec0", "0.0.0.0");
    EXPECT_FALSE(sampler.vpnActive());
}

TEST_F(NetworkInfoSamplerTest, TunnelWhoseAddressCannotBeWrittenIsPassedOver) {
    haveAddress("utun0", std::nullopt);
    EXPECT_FALSE(sampler.vpnActive());
    haveAddress("utun1", "10.0.0.1");
    EXPECT_TRUE(sampler.vpnActive());
}

TEST_F(NetworkInfoSamplerTest, OtherInterfaceIsNoVpn) {
    haveAddress("en0", "192.0.2.1");
    EXPECT_FALSE(sampler.vpnActive());
}

TEST_F(NetworkInfoSamplerTest, AutomaticProxyWinsOverAnEnabledOne) {
    proxies.settings =
        ProxySettings{.isAutomatic = true, .http = {true, "web.example"}, .https = {}, .socks = {}};
    EXPECT_EQ(sampler.proxyDescription(), "PAC");
}

TEST_F(NetworkInfoSamplerTest, EnabledProxyWithoutAHostIsPassedOver) {
    proxies.settings =
        ProxySettings{.isAutomatic = false, .http = {true, ""}, .https = {true, "tls.example"}, .socks = {}};
    EXPECT_EQ(sampler.proxyDescription(), "tls.example");
}

TEST_F(NetworkInfoSamplerTest, ProxyThatIsNotEnabledIsPassedOver) {
    proxies.settings = ProxySettings{
        .isAutomatic = false, .http = {false, "web.example"}, .https = {}, .socks = {true, "socks.example"}};
    EXPECT_EQ(sampler.proxyDescription(), "socks.example");
}

TEST_F(NetworkInfoSamplerTest, SettingsWithoutAProxyGiveNone) {
    proxies.settings = ProxySettings{};
    EXPECT_EQ(sampler.proxyDescription(), std::nullopt);
}

}  // namespace
}  // namespace velmora
