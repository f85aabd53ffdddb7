#include "platform/linux/network/LinuxDefaultRoute.h"

#include "platform/linux/files/SystemFile.h"
#include "platform/linux/network/ProcNetRoute.h"
#include "platform/linux/network/RouteMessages.h"

#include <linux/netlink.h>
#include <linux/nexthop.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>

#include <cstdint>
#include <optional>

namespace velmora {
namespace {

/// Fills in where a route leads that only names a shared next hop. Of a group the first member counts.
bool resolve(NetlinkSocket& socket, RouteMessages::DefaultRoute& route) {
    constexpr int kDeepest = 2;
    for (int depth = 0; depth < kDeepest; ++depth) {
        std::optional<RouteMessages::NextHop> hop;
        auto request = Netlink::RequestBuilder(RTM_GETNEXTHOP, 0)
                           .record(nhmsg{})
                           .attributeOf(NHA_ID, route.nextHop)
                           .bytes();
        const auto answer = socket.ask(
            request, [&hop](const Netlink::Message& message) { hop = RouteMessages::parseNextHop(message); });
        if (answer != NetlinkSocket::Answer::complete || !hop) return false;
        if (hop->index > 0) {
            route.index = hop->index;
            route.gateway = hop->gateway;
            return true;
        }
        route.nextHop = hop->firstOfGroup;
    }
    return false;
}

}  // namespace

GlobalIPv4 LinuxDefaultRoute::read() {
    if (m_links->root().isRunningSystem()) {
        if (const auto route = readByNetlink()) return *route;
    }
    return readFromText();
}

std::optional<GlobalIPv4> LinuxDefaultRoute::readByNetlink() {
    // A socket of its own: a router's table may be too long to read to its end. Routes to everywhere come
    // first.
    NetlinkSocket socket(NETLINK_ROUTE);
    std::optional<RouteMessages::DefaultRoute> best;
    rtmsg filter{};
    filter.rtm_family = AF_INET;
    filter.rtm_table = RT_TABLE_MAIN;
    auto request = Netlink::RequestBuilder(RTM_GETROUTE, NLM_F_DUMP).record(filter).bytes();
    constexpr int kMostReads = 64;
    const auto take = [&best](const Netlink::Message& message) {
        auto route = RouteMessages::parseDefaultRoute(message);
        if (route && (!best || route->priority < best->priority)) best = std::move(route);
    };
    const auto answer = socket.ask(request, take, kMostReads);
    if (answer == NetlinkSocket::Answer::refused) return std::nullopt;
    if (!best) return GlobalIPv4{};
    if (best->index <= 0) {
        NetlinkSocket resolver(NETLINK_ROUTE);
        if (!resolve(resolver, *best)) return GlobalIPv4{};
    }
    (void)m_links->links();
    const LinkFacts* const link = m_links->findKnown(best->index);
    if (!link) return GlobalIPv4{};
    return GlobalIPv4{.primaryInterface = link->name, .router = best->gateway};
}

GlobalIPv4 LinuxDefaultRoute::readFromText() {
    const auto text = readSystemFile(m_links->root().path("proc/net/route"), std::size_t{1} << 20U);
    auto route = text ? ProcNetRoute::parse(*text) : std::nullopt;
    if (!route) return {};
    return {.primaryInterface = std::move(route->interface), .router = std::move(route->gateway)};
}

}  // namespace velmora
