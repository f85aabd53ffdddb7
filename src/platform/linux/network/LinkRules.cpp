#include "platform/linux/network/LinkRules.h"

#include <linux/if.h>
#include <linux/if_arp.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace velmora::LinkRules {
namespace {

constexpr std::uint32_t kTunFlag = 1;
constexpr std::uint32_t kTapFlag = 2;
/// Point-to-point links of cellular modems; missing in older headers.
constexpr std::uint16_t kRawIp = 519;

constexpr std::array<std::string_view, 19> kPassingKinds = {
    "veth", "bridge", "bond",  "team",  "vlan",   "macvlan", "macvtap", "ipvlan", "ipvtap", "macsec",
    "ifb",  "dummy",  "nlmon", "vxlan", "geneve", "vcan",    "tap",     "netkit", "vrf"};

constexpr std::array<std::uint16_t, 5> kEncapsulationTypes = {ARPHRD_TUNNEL, ARPHRD_TUNNEL6, ARPHRD_SIT,
                                                              ARPHRD_IPGRE, ARPHRD_IP6GRE};

/// Where only files tell, the device type says the same of many kinds.
std::string_view kindOf(const LinkFacts& link) {
    return link.kind.empty() ? link.deviceType : link.kind;
}

bool isLoopback(const LinkFacts& link) {
    return (link.flags & static_cast<std::uint32_t>(IFF_LOOPBACK)) != 0;
}

bool isTap(const LinkFacts& link) {
    return (link.tunFlags & kTapFlag) != 0 || (link.kind == "tun" && link.type == ARPHRD_ETHER);
}

bool hasLanType(const LinkFacts& link) {
    return link.type == ARPHRD_ETHER || link.type == kRawIp;
}

}  // namespace

bool isOwnTraffic(const LinkFacts& link) {
    if (isLoopback(link) || link.hasLower) return false;
    if (isPassingKind(link)) return false;
    if (link.hasDevice || isTunnel(link)) return true;
    if (std::ranges::find(kEncapsulationTypes, link.type) != kEncapsulationTypes.end()) return true;
    // Files don't name the kind of a tunnel that has no program behind it.
    return link.type == ARPHRD_NONE && kindOf(link).empty();
}

bool isPassingKind(const LinkFacts& link) {
    return std::ranges::find(kPassingKinds, kindOf(link)) != kPassingKinds.end();
}

bool isTunnel(const LinkFacts& link) {
    if (link.type == ARPHRD_PPP) return true;
    if (link.type == ARPHRD_NONE && ((link.tunFlags & kTunFlag) != 0 || link.kind == "tun")) return true;
    const std::string_view kind = kindOf(link);
    return kind == "wireguard" || kind == "xfrm" || kind == "vti" || kind == "vti6" ||
           kind.starts_with("ipsec");
}

LanRule lanRule(const std::vector<LinkFacts>& links) {
    const bool anyHardware =
        std::ranges::any_of(links, [](const LinkFacts& link) { return isLan(link, LanRule::hardware); });
    return anyHardware ? LanRule::hardware : LanRule::anyEthernet;
}

bool isLan(const LinkFacts& link, LanRule rule) {
    switch (rule) {
        case LanRule::hardware:
            return link.hasDevice && hasLanType(link);
        case LanRule::anyEthernet:
            return link.type == ARPHRD_ETHER && kindOf(link) != "bridge" && !isTap(link);
    }
    return false;
}

std::optional<std::string> displayName(const LinkFacts& link) {
    if (link.isWireless || link.deviceType == "wlan") return "Wi-Fi";
    if (link.deviceType == "wwan") return "Cellular";
    if (link.deviceType == "bluetooth") return "Bluetooth PAN";
    if (!link.hasDevice || link.type != ARPHRD_ETHER) return std::nullopt;
    return link.isUsb ? "USB Ethernet" : "Ethernet";
}

}  // namespace velmora::LinkRules
