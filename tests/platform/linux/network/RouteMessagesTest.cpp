#include "platform/linux/network/RouteMessages.h"

#include "platform/linux/network/NetlinkBytes.h"

#include <gtest/gtest.h>

#include <linux/if_addr.h>
#include <linux/if_link.h>
#include <linux/nexthop.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace velmora {
namespace {

using RouteMessages::DefaultRoute;
using RouteMessages::LinkAddress;
using RouteMessages::LinkBytes;
using RouteMessages::NextHop;

NetlinkBytes link(int index, std::uint16_t type, std::uint32_t flags) {
    ifinfomsg record{};
    record.ifi_index = index;
    record.ifi_type = type;
    record.ifi_flags = flags;
    NetlinkBytes bytes;
    bytes.value(record);
    return bytes;
}

NetlinkBytes name(std::string_view text) {
    NetlinkBytes bytes;
    bytes.text(text).bytes({0});
    return bytes;
}

/// A route to everywhere of the main table.
rtmsg everywhere() {
    rtmsg record{};
    record.rtm_family = AF_INET;
    record.rtm_table = RT_TABLE_MAIN;
    record.rtm_type = RTN_UNICAST;
    return record;
}

std::optional<DefaultRoute> route(const rtmsg& record, const std::function<void(NetlinkBytes&)>& add) {
    NetlinkBytes bytes;
    bytes.value(record);
    add(bytes);
    return RouteMessages::parseDefaultRoute(bytes.message(RTM_NEWROUTE));
}

void overLinkFour(NetlinkBytes& bytes) {
    bytes.attributeOf(RTA_OIF, std::int32_t{4});
}

/// Every shorter form of the message is parsed as well, for the sanitizers.
template <typename Parser>
void expectNoHarmWhenCut(const NetlinkBytes& bytes, std::uint16_t type, Parser parse) {
    for (std::size_t length = 0; length < bytes.get().size(); ++length) {
        const std::vector<std::byte> cut(bytes.get().begin(),
                                         bytes.get().begin() + static_cast<std::ptrdiff_t>(length));
        (void)parse(Netlink::Message{type, 0, 1, cut});
    }
}

TEST(RouteMessages, LinkHasItsNameKindAndAddress) {
    NetlinkBytes bytes = link(7, 1, 0x1003);
    bytes.attribute(IFLA_IFNAME, name("veth0"))
        .attribute(IFLA_ADDRESS, NetlinkBytes().bytes({2, 0, 0, 0, 0, 9}))
        .attribute(IFLA_LINKINFO | NLA_F_NESTED, NetlinkBytes().attribute(IFLA_INFO_KIND, name("veth")));
    LinkFacts expected;
    expected.index = 7;
    expected.type = 1;
    expected.flags = 0x1003;
    expected.name = "veth0";
    expected.kind = "veth";
    expected.address = {2, 0, 0, 0, 0, 9};
    EXPECT_EQ(RouteMessages::parseLink(bytes.message(RTM_NEWLINK)), expected);
    expectNoHarmWhenCut(bytes, RTM_NEWLINK, RouteMessages::parseLink);
}

TEST(RouteMessages, LinkWithoutANameOrANumberIsNone) {
    EXPECT_EQ(RouteMessages::parseLink(link(7, 1, 0).message(RTM_NEWLINK)), std::nullopt);
    NetlinkBytes unnumbered = link(0, 1, 0);
    unnumbered.attribute(IFLA_IFNAME, name("x"));
    EXPECT_EQ(RouteMessages::parseLink(unnumbered.message(RTM_NEWLINK)), std::nullopt);
}

TEST(RouteMessages, LinkThatWentAwayIsNone) {
    NetlinkBytes bytes = link(7, 1, 0);
    bytes.attribute(IFLA_IFNAME, name("x"));
    EXPECT_EQ(RouteMessages::parseLink(bytes.message(RTM_DELLINK)), std::nullopt);
}

TEST(RouteMessages, OverlongLinkAddressIsCut) {
    NetlinkBytes bytes = link(7, 1, 0);
    bytes.attribute(IFLA_IFNAME, name("x"))
        .attribute(IFLA_ADDRESS, NetlinkBytes().bytes(std::vector<int>(4000, 1)));
    EXPECT_EQ(RouteMessages::parseLink(bytes.message(RTM_NEWLINK))->address.size(), 32U);
}

TEST(RouteMessages, BytesAreTheThirdAndFourthFigure) {
    if_stats_msg record{};
    record.ifindex = 3;
    NetlinkBytes bytes;
    bytes.value(record).attributeOf(IFLA_STATS_LINK_64,
                                    std::array<std::uint64_t, 6>{1, 2, std::uint64_t{5} << 33U, 4, 5, 6});
    EXPECT_EQ(RouteMessages::parseBytes(bytes.message(RTM_NEWSTATS)),
              (LinkBytes{.index = 3, .received = std::uint64_t{5} << 33U, .sent = 4}));
    EXPECT_EQ(RouteMessages::parseBytes(bytes.message(RTM_NEWLINK)), std::nullopt);
    expectNoHarmWhenCut(bytes, RTM_NEWSTATS, RouteMessages::parseBytes);
}

TEST(RouteMessages, BytesThatAreCutOffAreNone) {
    NetlinkBytes bytes;
    bytes.value(if_stats_msg{}).attribute(IFLA_STATS_LINK_64, NetlinkBytes().bytes(std::vector<int>(31, 1)));
    EXPECT_EQ(RouteMessages::parseBytes(bytes.message(RTM_NEWSTATS)), std::nullopt);
    NetlinkBytes other;
    other.value(if_stats_msg{})
        .attribute(IFLA_STATS_LINK_XSTATS, NetlinkBytes().bytes(std::vector<int>(64, 1)));
    EXPECT_EQ(RouteMessages::parseBytes(other.message(RTM_NEWSTATS)), std::nullopt);
}

TEST(RouteMessages, AddressIsThisEndsOfAPointToPointLink) {
    ifaddrmsg record{};
    record.ifa_family = AF_INET;
    record.ifa_index = 5;
    NetlinkBytes bytes;
    bytes.value(record)
        .attribute(IFA_ADDRESS, NetlinkBytes().bytes({10, 0, 0, 2}))
        .attribute(IFA_LOCAL, NetlinkBytes().bytes({10, 0, 0, 1}));
    EXPECT_EQ(RouteMessages::parseAddress(bytes.message(RTM_NEWADDR)),
              (LinkAddress{.index = 5, .address = {10, 0, 0, 1}}));
    expectNoHarmWhenCut(bytes, RTM_NEWADDR, RouteMessages::parseAddress);
}

TEST(RouteMessages, AddressWithoutALocalOneStandsForIt) {
    ifaddrmsg record{};
    record.ifa_family = AF_INET;
    NetlinkBytes bytes;
    bytes.value(record).attribute(IFA_ADDRESS, NetlinkBytes().bytes({10, 0, 0, 2}));
    EXPECT_EQ(RouteMessages::parseAddress(bytes.message(RTM_NEWADDR))->address,
              (std::array<std::uint8_t, 4>{10, 0, 0, 2}));
}

TEST(RouteMessages, AddressOfAnotherFamilyOrOfThreeBytesIsNone) {
    ifaddrmsg record{};
    record.ifa_family = AF_INET6;
    NetlinkBytes other;
    other.value(record).attribute(IFA_ADDRESS, NetlinkBytes().bytes(std::vector<int>(16, 1)));
    EXPECT_EQ(RouteMessages::parseAddress(other.message(RTM_NEWADDR)), std::nullopt);
    record.ifa_family = AF_INET;
    NetlinkBytes cut;
    cut.value(record).attribute(IFA_ADDRESS, NetlinkBytes().bytes({10, 0, 0}));
    EXPECT_EQ(RouteMessages::parseAddress(cut.message(RTM_NEWADDR)), std::nullopt);
}

TEST(RouteMessages, DefaultRouteHasItsGatewayAndPriority) {
    const auto found = route(everywhere(), [](NetlinkBytes& bytes) {
        bytes.attributeOf(RTA_PRIORITY, std::uint32_t{600})
            .attributeOf(RTA_OIF, std::int32_t{4})
            .attribute(RTA_GATEWAY, NetlinkBytes().bytes({192, 0, 2, 1}));
    });
    EXPECT_EQ(found, (DefaultRoute{.priority = 600, .index = 4, .gateway = "192.0.2.1", .nextHop = 0}));
}

TEST(RouteMessages, AbsentPriorityIsTheBestAndAbsentGatewayNone) {
    const auto found = route(everywhere(), overLinkFour);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->priority, 0U);
    EXPECT_EQ(found->gateway, std::nullopt);
}

TEST(RouteMessages, RouteToSomewhereIsNone) {
    rtmsg record = everywhere();
    record.rtm_dst_len = 24;
    EXPECT_EQ(route(record, overLinkFour), std::nullopt);
}

TEST(RouteMessages, RouteOfAnotherTableIsNone) {
    rtmsg record = everywhere();
    record.rtm_table = RT_TABLE_LOCAL;
    EXPECT_EQ(route(record, overLinkFour), std::nullopt);
    record.rtm_table = RT_TABLE_COMPAT;
    EXPECT_EQ(route(record,
                    [](NetlinkBytes& bytes) {
                        overLinkFour(bytes);
                        bytes.attributeOf(RTA_TABLE, std::uint32_t{51820});
                    }),
              std::nullopt)
        << "high numbers stand in an attribute";
}

TEST(RouteMessages, RouteOfAnotherTypeIsNone) {
    rtmsg record = everywhere();
    record.rtm_type = RTN_UNREACHABLE;
    EXPECT_EQ(route(record, overLinkFour), std::nullopt);
}

TEST(RouteMessages, RouteOverALinkThatIsGoneIsNone) {
    for (const unsigned flags : {RTNH_F_DEAD, RTNH_F_LINKDOWN}) {
        rtmsg record = everywhere();
        record.rtm_flags = flags;
        EXPECT_EQ(route(record, overLinkFour), std::nullopt);
    }
}

TEST(RouteMessages, RouteWithoutALinkIsNone) {
    EXPECT_EQ(route(everywhere(), [](NetlinkBytes&) {}), std::nullopt);
}

NetlinkBytes hop(int index, std::uint8_t flags, const std::vector<int>& gateway) {
    NetlinkBytes attributes;
    attributes.attribute(RTA_GATEWAY, NetlinkBytes().bytes(gateway));
    rtnexthop record{};
    record.rtnh_len = static_cast<std::uint16_t>(sizeof record + attributes.get().size());
    record.rtnh_flags = flags;
    record.rtnh_ifindex = index;
    NetlinkBytes bytes;
    bytes.value(record);
    for (const std::byte value : attributes.get()) bytes.value(value);
    return bytes;
}

NetlinkBytes hops(const std::vector<NetlinkBytes>& several) {
    NetlinkBytes bytes;
    for (const auto& one : several) {
        for (const std::byte value : one.get()) bytes.value(value);
    }
    return bytes;
}

TEST(RouteMessages, FirstOfSeveralHopsIsTaken) {
    const auto found = route(everywhere(), [](NetlinkBytes& bytes) {
        bytes.attribute(RTA_MULTIPATH, hops({hop(4, 0, {192, 0, 2, 1}), hop(5, 0, {192, 0, 2, 2})}));
    });
    ASSERT_TRUE(found);
    EXPECT_EQ(found->index, 4);
    EXPECT_EQ(found->gateway, "192.0.2.1");
}

TEST(RouteMessages, HopOverALinkThatIsGoneIsPassedOver) {
    const auto found = route(everywhere(), [](NetlinkBytes& bytes) {
        bytes.attribute(RTA_MULTIPATH,
                        hops({hop(4, RTNH_F_LINKDOWN, {192, 0, 2, 1}), hop(5, 0, {192, 0, 2, 2})}));
    });
    ASSERT_TRUE(found);
    EXPECT_EQ(found->index, 5);
}

TEST(RouteMessages, HopOfAnImpossibleLengthIsNone) {
    for (const std::uint16_t length : {std::uint16_t{0}, std::uint16_t{7}, std::uint16_t{9000}}) {
        rtnexthop record{};
        record.rtnh_len = length;
        record.rtnh_ifindex = 4;
        EXPECT_EQ(
            route(everywhere(),
                  [&](NetlinkBytes& bytes) { bytes.attribute(RTA_MULTIPATH, NetlinkBytes().value(record)); }),
            std::nullopt);
    }
}

TEST(RouteMessages, GatewayOfTheOtherFamilyIsNamed) {
    const auto found = route(everywhere(), [](NetlinkBytes& bytes) {
        overLinkFour(bytes);
        std::vector<int> address(16);
        address[0] = 0xFE;
        address[1] = 0x80;
        address[15] = 1;
        bytes.attribute(RTA_VIA, NetlinkBytes().value(std::uint16_t{AF_INET6}).bytes(address));
    });
    ASSERT_TRUE(found);
    EXPECT_EQ(found->gateway, "fe80::1");
}

TEST(RouteMessages, RouteMayNameASharedHopOnly) {
    const auto found =
        route(everywhere(), [](NetlinkBytes& bytes) { bytes.attributeOf(RTA_NH_ID, std::uint32_t{9}); });
    ASSERT_TRUE(found);
    EXPECT_EQ(found->index, 0);
    EXPECT_EQ(found->nextHop, 9U);
}

TEST(RouteMessages, CutRoutesDoNoHarm) {
    NetlinkBytes bytes;
    bytes.value(everywhere()).attribute(RTA_MULTIPATH, hops({hop(4, 0, {192, 0, 2, 1})}));
    expectNoHarmWhenCut(bytes, RTM_NEWROUTE, RouteMessages::parseDefaultRoute);
}

TEST(RouteMessages, SharedHopHasItsLinkAndGateway) {
    nhmsg record{};
    record.nh_family = AF_INET;
    NetlinkBytes bytes;
    bytes.value(record)
        .attributeOf(NHA_OIF, std::int32_t{4})
        .attribute(NHA_GATEWAY, NetlinkBytes().bytes({192, 0, 2, 1}));
    EXPECT_EQ(RouteMessages::parseNextHop(bytes.message(RTM_NEWNEXTHOP)),
              (NextHop{.index = 4, .gateway = "192.0.2.1", .firstOfGroup = 0}));
    expectNoHarmWhenCut(bytes, RTM_NEWNEXTHOP, RouteMessages::parseNextHop);
}

TEST(RouteMessages, GroupOfSharedHopsNamesItsFirst) {
    NetlinkBytes bytes;
    bytes.value(nhmsg{}).attribute(NHA_GROUP, NetlinkBytes().value(std::array<std::uint32_t, 2>{7, 0}));
    EXPECT_EQ(RouteMessages::parseNextHop(bytes.message(RTM_NEWNEXTHOP))->firstOfGroup, 7U);
}

TEST(RouteMessages, SharedHopThatLeadsNowhereIsNone) {
    NetlinkBytes bytes;
    bytes.value(nhmsg{});
    EXPECT_EQ(RouteMessages::parseNextHop(bytes.message(RTM_NEWNEXTHOP)), std::nullopt);
}

}  // namespace
}  // namespace velmora
