#pragma once

#include "platform/linux/network/LinkFacts.h"
#include "platform/linux/network/NetlinkMessages.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

// The answers of the kernel's routing service (rtnetlink), each from one message. A message of another type,
// or one that lacks what makes it useful, gives nothing.

namespace velmora::RouteMessages {

/// `RTM_NEWLINK`. What only files tell stays at its default.
std::optional<LinkFacts> parseLink(const Netlink::Message& message);

struct LinkBytes {
    int index = 0;
    std::uint64_t received = 0;
    std::uint64_t sent = 0;
    friend bool operator==(const LinkBytes&, const LinkBytes&) = default;
};
/// `RTM_NEWSTATS` with `IFLA_STATS_LINK_64`.
std::optional<LinkBytes> parseBytes(const Netlink::Message& message);

struct LinkAddress {
    int index = 0;
    std::array<std::uint8_t, 4> address{};
    friend bool operator==(const LinkAddress&, const LinkAddress&) = default;
};
/// `RTM_NEWADDR` of IPv4: this machine's end, not the far one of a point-to-point link.
std::optional<LinkAddress> parseAddress(const Netlink::Message& message);

/// A way out of the local network.
struct DefaultRoute {
    std::uint32_t priority = 0;  ///< Less is better.
    int index = 0;               ///< 0 where only `nextHop` tells.
    std::optional<std::string> gateway;
    std::uint32_t nextHop = 0;  ///< Number of a shared next hop, 0 for none.
    friend bool operator==(const DefaultRoute&, const DefaultRoute&) = default;
};
/// `RTM_NEWROUTE` of IPv4 to everywhere, in the main table, over a link that is there.
std::optional<DefaultRoute> parseDefaultRoute(const Netlink::Message& message);

/// A next hop that routes share by its number.
struct NextHop {
    int index = 0;
    std::optional<std::string> gateway;
    std::uint32_t firstOfGroup = 0;  ///< For a group, the number of its first member.
    friend bool operator==(const NextHop&, const NextHop&) = default;
};
/// `RTM_NEWNEXTHOP`; nothing for one whose link is not there.
std::optional<NextHop> parseNextHop(const Netlink::Message& message);

}  // namespace velmora::RouteMessages
