#include "platform/linux/network/LinkRules.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace velmora {
namespace {

constexpr std::uint16_t kEther = 1;
constexpr std::uint16_t kPpp = 512;
constexpr std::uint16_t kRawIp = 519;
constexpr std::uint16_t kTunnel = 768;
constexpr std::uint16_t kLoopbackType = 772;
constexpr std::uint16_t kSit = 776;
constexpr std::uint16_t kGre = 778;
constexpr std::uint16_t kNone = 65534;
constexpr std::uint32_t kLoopbackFlag = 8;

LinkFacts link(std::string name, std::uint16_t type, std::string kind = {}) {
    LinkFacts facts;
    facts.index = 2;
    facts.name = std::move(name);
    facts.type = type;
    facts.kind = std::move(kind);
    return facts;
}

LinkFacts hardware(std::string name, std::uint16_t type = kEther) {
    LinkFacts facts = link(std::move(name), type);
    facts.hasDevice = true;
    return facts;
}

TEST(LinkRules, HardwareCarriesOwnTraffic) {
    EXPECT_TRUE(LinkRules::isOwnTraffic(hardware("enp3s0")));
    EXPECT_TRUE(LinkRules::isOwnTraffic(hardware("wwan0", kRawIp)));
}

TEST(LinkRules, LoopbackCarriesNone) {
    LinkFacts loopback = link("lo", kLoopbackType);
    loopback.flags = kLoopbackFlag;
    EXPECT_FALSE(LinkRules::isOwnTraffic(loopback));
}

TEST(LinkRules, WhatOnlyPassesOnCarriesNone) {
    for (const char* kind : {"veth", "bridge", "bond", "team", "vlan", "macvlan", "ipvlan", "macsec", "ifb",
                             "dummy", "nlmon", "vxlan", "geneve", "vcan", "tap"}) {
        EXPECT_FALSE(LinkRules::isOwnTraffic(link("x", kEther, kind))) << kind;
        LinkFacts withDevice = hardware("x");
        withDevice.kind = kind;
        EXPECT_FALSE(LinkRules::isOwnTraffic(withDevice)) << kind;
    }
}

TEST(LinkRules, TapOfAVirtualMachineCarriesNone) {
    EXPECT_FALSE(LinkRules::isOwnTraffic(link("vnet0", kEther, "tun")));
    LinkFacts fromFiles = link("vnet0", kEther);
    fromFiles.tunFlags = 0x1802;
    EXPECT_FALSE(LinkRules::isOwnTraffic(fromFiles));
}

TEST(LinkRules, WhatStandsOnAnotherInterfaceCarriesNone) {
    LinkFacts port = hardware("lan1");
    port.hasLower = true;
    EXPECT_FALSE(LinkRules::isOwnTraffic(port));
}

TEST(LinkRules, TunnelsCarryOwnTraffic) {
    EXPECT_TRUE(LinkRules::isOwnTraffic(link("tun0", kNone, "tun")));
    EXPECT_TRUE(LinkRules::isOwnTraffic(link("wg0", kNone, "wireguard")));
    EXPECT_TRUE(LinkRules::isOwnTraffic(link("ppp0", kPpp, "ppp")));
    EXPECT_TRUE(LinkRules::isOwnTraffic(link("tunl0", kTunnel, "ipip")));
    EXPECT_TRUE(LinkRules::isOwnTraffic(link("sit0", kSit, "sit")));
    EXPECT_TRUE(LinkRules::isOwnTraffic(link("gre1", kGre, "gre")));
    EXPECT_TRUE(LinkRules::isOwnTraffic(link("xfrm0", kNone, "xfrm")));
    EXPECT_TRUE(LinkRules::isOwnTraffic(link("vti0", kTunnel, "vti")));
}

TEST(LinkRules, TunnelsAreKnownFromFilesAlone) {
    LinkFacts tun = link("tun0", kNone);
    tun.tunFlags = 0x1801;
    EXPECT_TRUE(LinkRules::isOwnTraffic(tun));
    EXPECT_TRUE(LinkRules::isTunnel(tun));
    LinkFacts wireguard = link("wg0", kNone);
    wireguard.deviceType = "wireguard";
    EXPECT_TRUE(LinkRules::isOwnTraffic(wireguard));
    EXPECT_TRUE(LinkRules::isTunnel(wireguard));
}

TEST(LinkRules, EthernetWithoutHardwareAndKindCarriesNone) {
    EXPECT_FALSE(LinkRules::isOwnTraffic(link("veth1", kEther)));
}

TEST(LinkRules, PrivateTunnelsAreTunnels) {
    EXPECT_TRUE(LinkRules::isTunnel(link("tun0", kNone, "tun")));
    EXPECT_TRUE(LinkRules::isTunnel(link("wg0", kNone, "wireguard")));
    EXPECT_TRUE(LinkRules::isTunnel(link("xfrm0", kNone, "xfrm")));
    EXPECT_TRUE(LinkRules::isTunnel(link("vti0", kTunnel, "vti")));
    EXPECT_TRUE(LinkRules::isTunnel(link("any", kEther, "ipsec0")));
    EXPECT_TRUE(LinkRules::isTunnel(link("ppp0", kPpp)));
}

TEST(LinkRules, EncapsulationAndTapAreNoPrivateTunnels) {
    EXPECT_FALSE(LinkRules::isTunnel(link("tunl0", kTunnel, "ipip")));
    EXPECT_FALSE(LinkRules::isTunnel(link("sit0", kSit, "sit")));
    EXPECT_FALSE(LinkRules::isTunnel(link("vnet0", kEther, "tun")));
    EXPECT_FALSE(LinkRules::isTunnel(hardware("enp3s0")));
}

TEST(LinkRules, WithHardwareOnlyHardwareStandsInALan) {
    const std::vector<LinkFacts> links = {hardware("enp3s0"), hardware("wwan0", kRawIp),
                                          link("veth0", kEther, "veth")};
    const LinkRules::LanRule rule = LinkRules::lanRule(links);
    EXPECT_TRUE(LinkRules::isLan(links[0], rule));
    EXPECT_TRUE(LinkRules::isLan(links[1], rule));
    EXPECT_FALSE(LinkRules::isLan(links[2], rule));
}

TEST(LinkRules, HardwareOfAnotherTypeStandsInNoLan) {
    EXPECT_FALSE(LinkRules::isLan(hardware("can0", 280), LinkRules::LanRule::hardware));
}

TEST(LinkRules, WithoutHardwareEthernetStandsInALan) {
    LinkFacts tap = link("vnet0", kEther);
    tap.tunFlags = 2;
    const std::vector<LinkFacts> links = {link("eth0", kEther, "veth"), link("docker0", kEther, "bridge"),
                                          tap, link("tun0", kNone, "tun")};
    const LinkRules::LanRule rule = LinkRules::lanRule(links);
    EXPECT_TRUE(LinkRules::isLan(links[0], rule));
    EXPECT_FALSE(LinkRules::isLan(links[1], rule));
    EXPECT_FALSE(LinkRules::isLan(links[2], rule));
    EXPECT_FALSE(LinkRules::isLan(links[3], rule));
}

TEST(LinkRules, InterfacesHaveTheirNames) {
    LinkFacts wireless = hardware("wlp2s0");
    wireless.isWireless = true;
    EXPECT_EQ(LinkRules::displayName(wireless), "Wi-Fi");
    LinkFacts cellular = hardware("wwan0", kRawIp);
    cellular.deviceType = "wwan";
    cellular.isUsb = true;
    EXPECT_EQ(LinkRules::displayName(cellular), "Cellular");
    LinkFacts bluetooth = hardware("bnep0");
    bluetooth.deviceType = "bluetooth";
    EXPECT_EQ(LinkRules::displayName(bluetooth), "Bluetooth PAN");
    LinkFacts usb = hardware("enx0");
    usb.isUsb = true;
    EXPECT_EQ(LinkRules::displayName(usb), "USB Ethernet");
    EXPECT_EQ(LinkRules::displayName(hardware("enp3s0")), "Ethernet");
}

TEST(LinkRules, InterfaceWithoutHardwareHasNoName) {
    EXPECT_EQ(LinkRules::displayName(link("docker0", kEther, "bridge")), std::nullopt);
    EXPECT_EQ(LinkRules::displayName(link("tun0", kNone, "tun")), std::nullopt);
}

}  // namespace
}  // namespace velmora
