// The parsers of the network's text files.

#include "platform/linux/network/LinkFiles.h"
#include "platform/linux/network/ProcNetDev.h"
#include "platform/linux/network/ProcNetRoute.h"
#include "platform/linux/network/ResolvConf.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {
namespace {

using Rows = std::vector<ProcNetDev::Row>;
using namespace std::string_view_literals;

Rows rowsOf(std::string_view text) {
    Rows rows = {{.name = "old", .received = 1, .sent = 1}};
    ProcNetDev::parse(text, rows);
    return rows;
}

TEST(ProcNetDev, HeadingsArePassedOverAndBytesTaken) {
    EXPECT_EQ(rowsOf("Inter-|   Receive                |  Transmit\n"
                     " face |bytes    packets errs drop|bytes    packets\n"
                     "    lo: 11 1 2 3 4 5 6 7 22 1 2 3 4 5 6 7\n"
                     "  eth0: 33 1 2 3 4 5 6 7 44 1 2 3 4 5 6 7\n"),
              (Rows{{"lo", 11, 22}, {"eth0", 33, 44}}));
}

TEST(ProcNetDev, FiguresMayFollowTheColonAtOnce) {
    EXPECT_EQ(rowsOf("eth0:1 1 1 1 1 1 1 1 2 1\n"), (Rows{{"eth0", 1, 2}}));
}

TEST(ProcNetDev, NameMayHoldAColon) {
    EXPECT_EQ(rowsOf("eth0:1: 5 0 0 0 0 0 0 0 6\n"), (Rows{{"eth0:1", 5, 6}}));
}

TEST(ProcNetDev, LineThatIsCutOffIsPassedOver) {
    EXPECT_EQ(rowsOf("eth0: 1 1 1 1 1 1 1 1\neth1: 3 0 0 0 0 0 0 0 4"), (Rows{{"eth1", 3, 4}}));
}

TEST(ProcNetDev, FigureThatIsNoneLosesItsLineOnly) {
    EXPECT_EQ(rowsOf("a: x 0 0 0 0 0 0 0 4\nb: -1 0 0 0 0 0 0 0 4\nc: 99999999999999999999 0 0 0 0 0 0 0 4\n"
                     "d: 1 0 0 0 0 0 0 0 18446744073709551615\n"),
              (Rows{{"d", 1, 18446744073709551615U}}));
}

TEST(ProcNetDev, EmptyAndForeignTextHasNoRows) {
    EXPECT_TRUE(rowsOf("").empty());
    EXPECT_TRUE(rowsOf("\0\0\0\0"sv).empty());
    EXPECT_TRUE(rowsOf("\xFF\xFE:\n:::\n: 1 2 3 4 5 6 7 8 9\n").empty());
}

using ProcNetRoute::DefaultRoute;

TEST(ProcNetRoute, LowestMetricWins) {
    EXPECT_EQ(ProcNetRoute::parse("Iface\tDestination\tGateway\n"
                                  "wlan0\t00000000\t0102A8C0\t0003\t0\t0\t600\t00000000\t0\t0\t0\n"
                                  "eth0\t00000000\t010200C0\t0003\t0\t0\t100\t00000000\t0\t0\t0\n"),
              (DefaultRoute{"eth0", "192.0.2.1"}));
}

TEST(ProcNetRoute, FirstOfEqualsIsTaken) {
    EXPECT_EQ(ProcNetRoute::parse("a\t00000000\t010200C0\t0003\t0\t0\t5\t00000000\n"
                                  "b\t00000000\t020200C0\t0003\t0\t0\t5\t00000000\n"),
              (DefaultRoute{"a", "192.0.2.1"}));
}

TEST(ProcNetRoute, PointToPointRouteHasNoGateway) {
    EXPECT_EQ(ProcNetRoute::parse("ppp0\t00000000\t00000000\t0001\t0\t0\t0\t00000000\n"),
              (DefaultRoute{"ppp0", std::nullopt}));
}

TEST(ProcNetRoute, RouteToSomewhereOrRejectedOrDownIsNone) {
    EXPECT_EQ(ProcNetRoute::parse("eth0\t000200C0\t00000000\t0001\t0\t0\t0\t00FFFFFF\n"), std::nullopt);
    EXPECT_EQ(ProcNetRoute::parse("eth0\t00000000\t00000000\t0001\t0\t0\t0\t00000080\n"), std::nullopt);
    EXPECT_EQ(ProcNetRoute::parse("*\t00000000\t00000000\t0201\t0\t0\t0\t00000000\n"), std::nullopt);
    EXPECT_EQ(ProcNetRoute::parse("eth0\t00000000\t010200C0\t0002\t0\t0\t0\t00000000\n"), std::nullopt);
}

TEST(ProcNetRoute, DamagedTextHasNoRoute) {
    EXPECT_EQ(ProcNetRoute::parse(""), std::nullopt);
    EXPECT_EQ(ProcNetRoute::parse("eth0\t00000000\t010200C0\t0003"), std::nullopt);
    EXPECT_EQ(ProcNetRoute::parse("eth0\tzz\t010200C0\t0003\t0\t0\t0\t00000000\n"), std::nullopt);
    EXPECT_EQ(ProcNetRoute::parse("\0\0\n\xFF\n"sv), std::nullopt);
}

TEST(ResolvConf, FirstNameServerIsTaken) {
    EXPECT_EQ(ResolvConf::firstNameServer("search example\nnameserver 192.0.2.53\nnameserver 192.0.2.54\n"),
              "192.0.2.53");
    EXPECT_EQ(ResolvConf::firstNameServer("nameserver\t2001:db8::1"), "2001:db8::1");
    EXPECT_EQ(ResolvConf::firstNameServer("nameserver fe80::1%eth0 # near\n"), "fe80::1%eth0");
}

TEST(ResolvConf, CommentsAndOtherWordsAreNoServers) {
    EXPECT_EQ(
        ResolvConf::firstNameServer("# nameserver 192.0.2.1\n;nameserver 192.0.2.2\n nameserver 192.0.2.3\n"
                                    "nameservers 192.0.2.4\noptions edns0\n"),
        std::nullopt);
}

TEST(ResolvConf, ServerThatIsNoAddressIsPassedOver) {
    EXPECT_EQ(ResolvConf::firstNameServer("nameserver\nnameserver dns.example\nnameserver 192.0.2.300\n"
                                          "nameserver 192.0.2.7;x\n"),
              "192.0.2.7");
}

TEST(ResolvConf, DamagedTextHasNoServer) {
    EXPECT_EQ(ResolvConf::firstNameServer(""), std::nullopt);
    EXPECT_EQ(ResolvConf::firstNameServer("nameserver 192.0.2.1\0"sv), std::nullopt);
    EXPECT_EQ(ResolvConf::firstNameServer("nameserver \xFF\xFF\n"), std::nullopt);
    EXPECT_EQ(ResolvConf::firstNameServer("nameserver " + std::string(100000, '1')), std::nullopt);
}

TEST(ResolvConf, ServersOnThisMachineAreTold) {
    using ResolvConf::Server;
    EXPECT_EQ(ResolvConf::serverAt("127.0.0.53"), Server::systemdStub);
    EXPECT_EQ(ResolvConf::serverAt("127.0.0.54"), Server::systemdStub);
    EXPECT_EQ(ResolvConf::serverAt("127.0.1.1"), Server::otherOnThisMachine);
    EXPECT_EQ(ResolvConf::serverAt("::1"), Server::otherOnThisMachine);
    EXPECT_EQ(ResolvConf::serverAt("192.0.2.1"), Server::elsewhere);
    EXPECT_EQ(ResolvConf::serverAt("::11"), Server::elsewhere);
}

TEST(LinkFiles, DeviceTypeIsOneLine) {
    EXPECT_EQ(LinkFiles::deviceType("INTERFACE=wlan0\nDEVTYPE=wlan\nIFINDEX=3\n"), "wlan");
    EXPECT_EQ(LinkFiles::deviceType("DEVTYPE=wwan"), "wwan");
    EXPECT_EQ(LinkFiles::deviceType("INTERFACE=eth0\nXDEVTYPE=no\n"), "");
    EXPECT_EQ(LinkFiles::deviceType(""), "");
}

TEST(LinkFiles, LinkAddressIsPairsOfDigits) {
    using Address = std::vector<std::uint8_t>;
    EXPECT_EQ(LinkFiles::linkAddress("02:fc:00:00:00:01"), (Address{2, 0xFC, 0, 0, 0, 1}));
    EXPECT_EQ(LinkFiles::linkAddress(""), Address{});
    for (const char* bad : {"2:fc", "02:fc:", ":02", "02-fc", "zz:00", "002:01", "02::01"})
        EXPECT_EQ(LinkFiles::linkAddress(bad), Address{}) << bad;
}

}  // namespace
}  // namespace velmora
