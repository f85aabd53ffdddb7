#include "platform/linux/network/RouteMessages.h"

#include "platform/linux/network/IpText.h"

#include <linux/if_addr.h>
#include <linux/if_link.h>
#include <linux/nexthop.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>

#include <algorithm>
#include <cstddef>

namespace velmora::RouteMessages {
namespace {

using Netlink::Bytes;
using Netlink::nextAttribute;
using Netlink::valueOf;

/// Longer link-layer addresses do not exist (`MAX_ADDR_LEN` of the kernel).
constexpr std::size_t kLongestLinkAddress = 32;

std::string kindIn(Bytes linkInformation) {
    while (const auto attribute = nextAttribute(linkInformation)) {
        if (attribute->type == IFLA_INFO_KIND) return std::string(Netlink::textOf(attribute->value));
    }
    return {};
}

/// `RTA_VIA`: a family and an address of it.
std::optional<std::string> viaText(Bytes value) {
    const auto family = valueOf<std::uint16_t>(value);
    return family ? ipText(*family, value.subspan(sizeof *family)) : std::nullopt;
}

bool isGone(std::uint32_t flags) {
    return (flags & (RTNH_F_DEAD | RTNH_F_LINKDOWN)) != 0;
}

/// Fills in the first hop of several whose link is there; false if none is.
bool takeFirstHop(Bytes hops, DefaultRoute& route) {
    while (const auto hop = valueOf<rtnexthop>(hops)) {
        if (hop->rtnh_len < sizeof(rtnexthop) || hop->rtnh_len > hops.size()) return false;
        if (!isGone(hop->rtnh_flags)) {
            route.index = hop->rtnh_ifindex;
            Bytes attributes = hops.subspan(sizeof(rtnexthop), hop->rtnh_len - sizeof(rtnexthop));
            while (const auto attribute = nextAttribute(attributes)) {
                if (attribute->type == RTA_GATEWAY) route.gateway = ipText(AF_INET, attribute->value);
                if (attribute->type == RTA_VIA) route.gateway = viaText(attribute->value);
            }
            return true;
        }
        const std::size_t length = (std::size_t{hop->rtnh_len} + 3) & ~std::size_t{3};
        hops = hops.subspan(std::min(length, hops.size()));
    }
    return false;
}

}  // namespace

std::optional<LinkFacts> parseLink(const Netlink::Message& message) {
    const auto information = valueOf<ifinfomsg>(message.body);
    if (message.type != RTM_NEWLINK || !information || information->ifi_index <= 0) return std::nullopt;
    LinkFacts link;
    link.index = information->ifi_index;
    link.flags = information->ifi_flags;
    link.type = information->ifi_type;
    Bytes attributes = Netlink::attributesBehind(message.body, sizeof(ifinfomsg));
    while (const auto attribute = nextAttribute(attributes)) {
        switch (attribute->type) {
            case IFLA_IFNAME:
                link.name = Netlink::textOf(attribute->value);
                break;
            case IFLA_ADDRESS:
                link.address.clear();
                for (const std::byte value :
                     attribute->value.first(std::min(attribute->value.size(), kLongestLinkAddress)))
                    link.address.push_back(std::to_integer<std::uint8_t>(value));
                break;
            case IFLA_LINKINFO:
                link.kind = kindIn(attribute->value);
                break;
            default:
                break;
        }
    }
    if (link.name.empty()) return std::nullopt;
    return link;
}

std::optional<LinkBytes> parseBytes(const Netlink::Message& message) {
    // The first four figures of `rtnl_link_stats64`: packets and bytes, each received and sent.
    constexpr std::size_t kReceivedOffset = 16;
    constexpr std::size_t kSentOffset = 24;
    const auto information = valueOf<if_stats_msg>(message.body);
    if (message.type != RTM_NEWSTATS || !information) return std::nullopt;
    Bytes attributes = Netlink::attributesBehind(message.body, sizeof(if_stats_msg));
    while (const auto attribute = nextAttribute(attributes)) {
        if (attribute->type != IFLA_STATS_LINK_64) continue;
        if (attribute->value.size() < kSentOffset + sizeof(std::uint64_t)) return std::nullopt;
        return LinkBytes{.index = static_cast<int>(information->ifindex),
                         .received = *valueOf<std::uint64_t>(attribute->value.subspan(kReceivedOffset)),
                         .sent = *valueOf<std::uint64_t>(attribute->value.subspan(kSentOffset))};
    }
    return std::nullopt;
}

std::optional<LinkAddress> parseAddress(const Netlink::Message& message) {
    using Address = std::array<std::uint8_t, 4>;
    const auto information = valueOf<ifaddrmsg>(message.body);
    if (message.type != RTM_NEWADDR || !information || information->ifa_family != AF_INET)
        return std::nullopt;
    std::optional<Address> local;
    std::optional<Address> address;
    Bytes attributes = Netlink::attributesBehind(message.body, sizeof(ifaddrmsg));
    while (const auto attribute = nextAttribute(attributes)) {
        if (attribute->type == IFA_LOCAL) local = valueOf<Address>(attribute->value);
        if (attribute->type == IFA_ADDRESS) address = valueOf<Address>(attribute->value);
    }
    if (!local) local = address;
    if (!local) return std::nullopt;
    return LinkAddress{.index = static_cast<int>(information->ifa_index), .address = *local};
}

std::optional<DefaultRoute> parseDefaultRoute(const Netlink::Message& message) {
    const auto information = valueOf<rtmsg>(message.body);
    if (message.type != RTM_NEWROUTE || !information || information->rtm_family != AF_INET ||
        information->rtm_dst_len != 0 || information->rtm_type != RTN_UNICAST ||
        isGone(information->rtm_flags)) {
        return std::nullopt;
    }
    DefaultRoute route;
    std::uint32_t table = information->rtm_table;
    bool reachable = true;
    Bytes attributes = Netlink::attributesBehind(message.body, sizeof(rtmsg));
    while (const auto attribute = nextAttribute(attributes)) {
        switch (attribute->type) {
            case RTA_TABLE:
                table = valueOf<std::uint32_t>(attribute->value).value_or(table);
                break;
            case RTA_PRIORITY:
                route.priority = valueOf<std::uint32_t>(attribute->value).value_or(0);
                break;
            case RTA_OIF:
                route.index = valueOf<std::int32_t>(attribute->value).value_or(0);
                break;
            case RTA_GATEWAY:
                route.gateway = ipText(AF_INET, attribute->value);
                break;
            case RTA_VIA:
                route.gateway = viaText(attribute->value);
                break;
            case RTA_MULTIPATH:
                reachable = takeFirstHop(attribute->value, route);
                break;
            case RTA_NH_ID:
                route.nextHop = valueOf<std::uint32_t>(attribute->value).value_or(0);
                break;
            default:
                break;
        }
    }
    if (table != RT_TABLE_MAIN || !reachable || (route.index <= 0 && route.nextHop == 0)) return std::nullopt;
    return route;
}

std::optional<NextHop> parseNextHop(const Netlink::Message& message) {
    const auto information = valueOf<nhmsg>(message.body);
    if (message.type != RTM_NEWNEXTHOP || !information || isGone(information->nh_flags)) return std::nullopt;
    NextHop hop;
    Bytes attributes = Netlink::attributesBehind(message.body, sizeof(nhmsg));
    while (const auto attribute = nextAttribute(attributes)) {
        switch (attribute->type) {
            case NHA_OIF:
                hop.index = valueOf<std::int32_t>(attribute->value).value_or(0);
                break;
            case NHA_GATEWAY:
                hop.gateway = ipText(information->nh_family, attribute->value);
                break;
            case NHA_GROUP:
                // A list of records of eight bytes, each beginning with a member's number.
                hop.firstOfGroup = valueOf<std::uint32_t>(attribute->value).value_or(0);
                break;
            default:
                break;
        }
    }
    if (hop.index <= 0 && hop.firstOfGroup == 0) return std::nullopt;
    return hop;
}

}  // namespace velmora::RouteMessages
