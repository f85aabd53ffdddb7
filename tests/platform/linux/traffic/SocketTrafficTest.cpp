#include "base/FormatText.h"
#include "platform/linux/files/SystemTree.h"
#include "platform/linux/traffic/InetDiagMessages.h"
#include "platform/linux/traffic/MadeUpSockets.h"
#include "platform/linux/traffic/SocketOwners.h"
#include "platform/linux/traffic/TrafficBlock.h"
#include "platform/linux/traffic/TrafficLedger.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

std::optional<TcpSocket> parsed(const MadeUpSocket& socket) {
    const std::vector<std::byte> dump = dumpOf({&socket, 1});
    Netlink::Bytes rest = dump;
    const auto message = Netlink::nextMessage(rest);
    return message ? InetDiag::parse(*message) : std::nullopt;
}

TEST(InetDiagMessagesTest, SocketHasCookieInodeUserAndCounters) {
    const auto socket =
        parsed({.cookie = 0x1234567890, .inode = 77, .user = 1000, .acknowledged = 501, .received = 400});
    EXPECT_EQ(socket, (TcpSocket{0x1234567890, 77, 1000, false, 400, 500}));
}

TEST(InetDiagMessagesTest, MarksOfBeginningAndEndAreNoTraffic) {
    for (const std::uint8_t state : {1, 2, 4, 5, 8, 9, 11, 7}) {
        const bool peerEnded = state == 8 || state == 9 || state == 11 || state == 7;
        const bool ownEndAcknowledged = state == 5 || state == 7;
        const auto socket = parsed(
            {.state = state, .acknowledged = ownEndAcknowledged ? 2U : 1U, .received = peerEnded ? 1U : 0U});
        ASSERT_TRUE(socket);
        EXPECT_EQ(socket->sent, 0U) << int(state);
        EXPECT_EQ(socket->received, 0U) << int(state);
    }
}

TEST(InetDiagMessagesTest, CountersNeverFallBelowNothing) {
    const auto socket = parsed({.state = 7, .acknowledged = 0, .received = 0});
    ASSERT_TRUE(socket);
    EXPECT_EQ(socket->sent, 0U);
    EXPECT_EQ(socket->received, 0U);
}

TEST(InetDiagMessagesTest, LoopbackIsKnownInAllItsForms) {
    EXPECT_TRUE(parsed({.source = {127, 0, 0, 1}, .destination = {127, 0, 0, 53}})->isLoopback);
    EXPECT_FALSE(parsed({.source = {10, 0, 0, 1}, .destination = {128, 0, 0, 1}})->isLoopback);
    const std::array<std::uint8_t, 16> one{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1};
    EXPECT_TRUE(parsed({.family = AF_INET6, .source = one, .destination = one})->isLoopback);
    const std::array<std::uint8_t, 16> mapped{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xFF, 127, 0, 0, 1};
    EXPECT_TRUE(parsed({.family = AF_INET6, .source = mapped, .destination = mapped})->isLoopback);
    const std::array<std::uint8_t, 16> global{0x20, 1, 0xD, 0xB8};
    EXPECT_FALSE(parsed({.family = AF_INET6, .source = global, .destination = global})->isLoopback);
}

TEST(InetDiagMessagesTest, ShorterAndLongerRecordsOfOtherKernelsAreRead) {
    EXPECT_TRUE(parsed({.infoSize = offsetof(tcp_info, tcpi_bytes_received) + 8}));
    EXPECT_FALSE(parsed({.infoSize = offsetof(tcp_info, tcpi_bytes_received)}));
    EXPECT_FALSE(parsed({.infoSize = 0}));
}

TEST(InetDiagMessagesTest, ForeignAndCutMessagesGiveNothing) {
    EXPECT_FALSE(parsed({.family = AF_UNIX}));
    std::vector<std::byte> other;
    appendSocket(other, {}, NLMSG_MIN_TYPE + 99);
    Netlink::Bytes rest = other;
    EXPECT_FALSE(InetDiag::parse(*Netlink::nextMessage(rest)));

    const MadeUpSocket socket;
    const std::vector<std::byte> dump = dumpOf({&socket, 1});
    for (std::size_t length = 0; length < dump.size(); ++length) {
        const Netlink::Message cut{SOCK_DIAG_BY_FAMILY, 0, 0,
                                   Netlink::Bytes(dump).subspan(16, length < 16 ? 0 : length - 16)};
        const auto result = InetDiag::parse(cut);
        EXPECT_TRUE(!result || result->sent == 0U);
    }
}

// By process.

class TrafficLedgerTest : public testing::Test {
protected:
    void take(std::vector<TcpSocket> sockets) {
        ledger.take(sockets, [this](const TcpSocket& socket) -> std::optional<std::int32_t> {
            const auto owner = owners.find(socket.inode);
            return owner == owners.end() ? std::nullopt : std::optional(owner->second);
        });
    }
    static TcpSocket socket(std::uint64_t cookie, std::uint32_t inode, std::uint64_t received,
                            std::uint64_t sent) {
        return {cookie, inode, 0, false, received, sent};
    }

    std::map<std::uint32_t, std::int32_t> owners{{71, 7}, {72, 7}, {81, 8}};
    TrafficLedger ledger;
};

TEST_F(TrafficLedgerTest, FirstIntervalIsAbsoluteAndLaterOnesAreDeltas) {
    take({socket(1, 71, 1000, 2000)});
    EXPECT_THAT(ledger.endInterval(), ElementsAre(ProcessTraffic{7, 1000, 2000}));
    take({socket(1, 71, 1100, 2010)});
    take({socket(1, 71, 1200, 2020)});
    EXPECT_THAT(ledger.endInterval(), ElementsAre(ProcessTraffic{7, 200, 20}));
}

TEST_F(TrafficLedgerTest, SocketsOfAProcessAddUpAndOthersStayApart) {
    take({socket(1, 71, 10, 0), socket(2, 72, 5, 1), socket(3, 81, 2, 2)});
    EXPECT_THAT(ledger.endInterval(), ElementsAre(ProcessTraffic{7, 15, 1}, ProcessTraffic{8, 2, 2}));
}

TEST_F(TrafficLedgerTest, IdleProcessWithASocketIsListed) {
    take({socket(1, 71, 10, 0)});
    ledger.endInterval();
    take({socket(1, 71, 10, 0)});
    EXPECT_THAT(ledger.endInterval(), ElementsAre(ProcessTraffic{7, 0, 0}));
}

TEST_F(TrafficLedgerTest, LoopbackAndSocketsOfNobodyAreLeftOut) {
    TcpSocket local = socket(1, 71, 10, 10);
    local.isLoopback = true;
    take({local, socket(2, 99, 10, 10)});
    EXPECT_THAT(ledger.endInterval(), IsEmpty());
}

TEST_F(TrafficLedgerTest, LastBytesOfADestroyedSocketGoToItsProcess) {
    take({socket(1, 71, 10, 10)});
    ledger.endInterval();
    take({});
    ledger.takeDestroyed(std::vector{socket(1, 0, 110, 20)});
    EXPECT_THAT(ledger.endInterval(), ElementsAre(ProcessTraffic{7, 100, 10}));
    ledger.takeDestroyed(std::vector{socket(1, 0, 110, 20)});
    EXPECT_THAT(ledger.endInterval(), IsEmpty());
}

TEST_F(TrafficLedgerTest, DestroyedSocketThatNoListHasSeenStaysUnknown) {
    ledger.takeDestroyed(std::vector{socket(5, 0, 110, 20)});
    EXPECT_THAT(ledger.endInterval(), IsEmpty());
}

TEST_F(TrafficLedgerTest, NoticeMayComeOneListLateAndThenTheSocketIsForgotten) {
    take({socket(1, 71, 10, 10)});
    take({});
    EXPECT_EQ(ledger.socketCount(), 1U);
    take({});
    EXPECT_EQ(ledger.socketCount(), 0U);
}

TEST_F(TrafficLedgerTest, ClosedSocketThatStillSendsBelongsToWhoHadIt) {
    take({socket(1, 71, 10, 10)});
    ledger.endInterval();
    take({socket(1, 0, 10, 60)});
    EXPECT_THAT(ledger.endInterval(), ElementsAre(ProcessTraffic{7, 0, 50}));
}

TEST_F(TrafficLedgerTest, SocketThatPassesToAnotherProcessCountsForItFromThenOn) {
    take({socket(1, 71, 10, 10)});
    ledger.endInterval();
    owners[71] = 8;
    take({socket(1, 71, 30, 10)});
    EXPECT_THAT(ledger.endInterval(), ElementsAre(ProcessTraffic{8, 20, 0}));
}

TEST_F(TrafficLedgerTest, CounterThatFallsGivesNothing) {
    take({socket(1, 71, 100, 100)});
    ledger.endInterval();
    take({socket(1, 71, 40, 90)});
    take({socket(1, 71, 110, 100)});
    EXPECT_THAT(ledger.endInterval(), ElementsAre(ProcessTraffic{7, 10, 0}));
}

TEST_F(TrafficLedgerTest, BusySocketsAreThoseWithTrafficInTheInterval) {
    take({socket(1, 71, 10, 0), socket(2, 72, 0, 0)});
    EXPECT_THAT(ledger.busyInodes(), UnorderedElementsAre(71));
    ledger.endInterval();
    EXPECT_THAT(ledger.busyInodes(), IsEmpty());
}

// Owners.

class SocketOwnersTest : public testing::Test {
protected:
    void open(std::int32_t pid, std::int32_t descriptor, std::uint32_t inode) const {
        tree.link(formatText("proc/%d/fd/%d", {pid, descriptor}), formatText("socket:[%u]", {inode}));
    }
    SystemTree tree;
};

TEST_F(SocketOwnersTest, InodeIsInTheLink) {
    EXPECT_EQ(SocketOwners::inodeOfLink("socket:[4711]"), 4711U);
    for (const char* text : {"", "socket:", "socket:[", "socket:[]", "socket:[x]", "pipe:[4711]",
                             "socket:[4711", "socket:[99999999999]", "/socket:[1]"})
        EXPECT_FALSE(SocketOwners::inodeOfLink(text)) << text;
}

TEST_F(SocketOwnersTest, OwnerIsTheProcessWithTheSocketOpen) {
    open(7, 3, 100);
    open(7, 4, 101);
    open(8, 5, 102);
    tree.link("proc/8/fd/6", "/dev/null");
    SocketOwners owners(tree.root());
    const std::vector<std::uint32_t> inodes = {100, 101, 102, 103, 0};
    owners.update(inodes);
    EXPECT_EQ(owners.owner(100), 7);
    EXPECT_EQ(owners.owner(101), 7);
    EXPECT_EQ(owners.owner(102), 8);
    EXPECT_EQ(owners.owner(103), std::nullopt);
    EXPECT_EQ(owners.owner(0), std::nullopt);
}

TEST_F(SocketOwnersTest, KnownSocketsAreNotSearchedForAgain) {
    open(7, 3, 100);
    SocketOwners owners(tree.root());
    const std::vector<std::uint32_t> inodes = {100, 103};
    owners.update(inodes);
    // Had it searched again, it would find these.
    tree.remove("proc/7/fd/3");
    open(9, 3, 103);
    owners.update(inodes);
    EXPECT_EQ(owners.owner(100), 7);
    EXPECT_EQ(owners.owner(103), std::nullopt);
}

TEST_F(SocketOwnersTest, SocketThatIsListedNoMoreIsForgotten) {
    open(7, 3, 100);
    SocketOwners owners(tree.root());
    owners.update(std::vector<std::uint32_t>{100});
    owners.update({});
    EXPECT_EQ(owners.owner(100), std::nullopt);
}

TEST_F(SocketOwnersTest, RecheckFindsThatASocketHasPassedOn) {
    open(7, 3, 100);
    SocketOwners owners(tree.root());
    const std::vector<std::uint32_t> inodes = {100};
    owners.update(inodes);
    owners.recheck(100);
    EXPECT_EQ(owners.owner(100), 7);
    open(7, 3, 555);  // Its number was used for another one.
    open(8, 9, 100);
    owners.recheck(100);
    owners.update(inodes);
    EXPECT_EQ(owners.owner(100), 8);
}

// Lines.

TEST(TrafficBlockTest, BlockIsAHeaderAndRows) {
    std::string text;
    TrafficBlock::appendHeader(text);
    TrafficBlock::appendRow(text, "firefox", {4711, 2000, 400}, 1);
    EXPECT_EQ(text, ",bytes_in,bytes_out,\nfirefox.4711,2000,400,\n");
}

TEST(TrafficBlockTest, LongerIntervalIsBroughtToTwoSeconds) {
    std::string text;
    TrafficBlock::appendRow(text, "a", {1, 2000, 401}, 0.5);
    EXPECT_EQ(text, "a.1,1000,201,\n");
}

TEST(TrafficBlockTest, NameHasNoCommaAndIsNeverEmpty) {
    EXPECT_EQ(TrafficBlock::lineName("a,b (c) d.e"), "a;b (c) d.e");
    EXPECT_EQ(TrafficBlock::lineName(""), "?");
}

}  // namespace
}  // namespace velmora
