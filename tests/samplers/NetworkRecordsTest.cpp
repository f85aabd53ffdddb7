#include "samplers/NetworkRecords.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace velmora {
namespace {

using nlohmann::json;

constexpr std::size_t kRecordSize = 160;
constexpr std::uint8_t kInterfaceInformation = 18;
constexpr std::int32_t kLoopback = 8;

class MessageList {
public:
    struct Record {
        std::uint16_t length = kRecordSize;
        std::uint8_t type = kInterfaceInformation;
        std::int32_t flags = 0;
        std::uint64_t received = 0;
        std::uint64_t sent = 0;
    };

    MessageList& add(const Record& record, std::size_t size = kRecordSize) {
        std::vector<std::byte> bytes(kRecordSize);
        std::memcpy(bytes.data(), &record.length, 2);
        std::memcpy(bytes.data() + 3, &record.type, 1);
        std::memcpy(bytes.data() + 8, &record.flags, 4);
        std::memcpy(bytes.data() + 96, &record.received, 8);
        std::memcpy(bytes.data() + 104, &record.sent, 8);
        m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
        return *this;
    }

    std::vector<InterfaceCounters> decode() const {
        std::vector<InterfaceCounters> interfaces = {{true, 1, 1}};
        NetworkRecords::decodeInterfaceList(m_bytes, interfaces);
        return interfaces;
    }

private:
    std::vector<std::byte> m_bytes;
};

TEST(NetworkRecords, InterfaceMessagesGiveTheirCountersInOrder) {
    MessageList list;
    list.add({.received = 1, .sent = 2}).add({.received = std::uint64_t{1} << 40U, .sent = 4});
    EXPECT_EQ(list.decode(),
              (std::vector<InterfaceCounters>{{false, 1, 2}, {false, std::uint64_t{1} << 40U, 4}}));
}

TEST(NetworkRecords, LoopbackFlagIsTold) {
    MessageList list;
    list.add({.flags = kLoopback | 1, .received = 5, .sent = 6}).add({.flags = 1, .received = 7, .sent = 8});
    EXPECT_EQ(list.decode(), (std::vector<InterfaceCounters>{{true, 5, 6}, {false, 7, 8}}));
}

TEST(NetworkRecords, MessageOfAnotherTypeAddsNothing) {
    MessageList list;
    list.add({.type = 14, .received = 9, .sent = 9}).add({.received = 1, .sent = 2});
    EXPECT_EQ(list.decode(), (std::vector<InterfaceCounters>{{false, 1, 2}}));
}

TEST(NetworkRecords, MessageOfLengthZeroEndsTheWalk) {
    MessageList list;
    list.add({.received = 1, .sent = 2}).add({.length = 0, .received = 3, .sent = 4}).add({.received = 5});
    EXPECT_EQ(list.decode(), (std::vector<InterfaceCounters>{{false, 1, 2}}));
}

TEST(NetworkRecords, TrailingRecordOf111BytesIsNotRead) {
    MessageList list;
    list.add({.received = 1, .sent = 2}).add({.received = 3, .sent = 4}, 111);
    EXPECT_EQ(list.decode(), (std::vector<InterfaceCounters>{{false, 1, 2}}));
}

TEST(NetworkRecords, TrailingRecordOf112BytesIsRead) {
    MessageList list;
    list.add({.received = 1, .sent = 2}).add({.received = 3, .sent = 4}, 112);
    EXPECT_EQ(list.decode(), (std::vector<InterfaceCounters>{{false, 1, 2}, {false, 3, 4}}));
}

TEST(NetworkRecords, RecordLongerThanTheRestIsTheLast) {
    MessageList list;
    list.add({.length = 60000, .received = 1, .sent = 2}).add({.received = 3, .sent = 4});
    EXPECT_EQ(list.decode(), (std::vector<InterfaceCounters>{{false, 1, 2}}));
}

TEST(NetworkRecords, ShortMessageBetweenIsSteppedOver) {
    MessageList list;
    list.add({.length = 20, .type = 12}, 20).add({.received = 3, .sent = 4});
    EXPECT_EQ(list.decode(), (std::vector<InterfaceCounters>{{false, 3, 4}}));
}

TEST(NetworkRecords, EmptyListGivesNoInterfaces) {
    EXPECT_TRUE(MessageList().decode().empty());
}

std::vector<std::byte> bytesOf(const std::vector<int>& values) {
    std::vector<std::byte> bytes;
    for (const int value : values) bytes.push_back(static_cast<std::byte>(value));
    return bytes;
}

TEST(NetworkRecords, LinkAddressBeginsBehindTheName) {
    // Length, family, index, type, length of "en0", of the address and of nothing, then the data.
    const auto record =
        bytesOf({20, 18, 4, 0, 6, 3, 6, 0, 'e', 'n', '0', 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF, 0, 0, 0});
    EXPECT_EQ(NetworkRecords::decodeLinkAddress(record),
              (std::vector<std::uint8_t>{0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF}));
}

TEST(NetworkRecords, LinkAddressOfAnotherFamilyIsNone) {
    EXPECT_EQ(NetworkRecords::decodeLinkAddress(bytesOf({20, 2, 4, 0, 6, 0, 4, 0, 1, 2, 3, 4})),
              std::nullopt);
}

TEST(NetworkRecords, LinkAddressThatIsCutOffIsNone) {
    EXPECT_EQ(NetworkRecords::decodeLinkAddress(bytesOf({20, 18, 4, 0, 6, 3, 6, 0, 'e', 'n', '0', 1, 2, 3})),
              std::nullopt);
    EXPECT_EQ(NetworkRecords::decodeLinkAddress(bytesOf({20, 18, 4})), std::nullopt);
    EXPECT_EQ(NetworkRecords::decodeLinkAddress({}), std::nullopt);
}

TEST(NetworkRecords, BaudRateIsThe32BitFigureAtOffset16) {
    std::vector<std::byte> data(96);
    const std::uint32_t rate = 1000000000;
    std::memcpy(data.data() + 16, &rate, sizeof rate);
    EXPECT_EQ(NetworkRecords::decodeBaudRate(data), rate);
    EXPECT_EQ(NetworkRecords::decodeBaudRate(std::span(data).first(20)), rate);
    EXPECT_EQ(NetworkRecords::decodeBaudRate(std::span(data).first(19)), 0U);
}

TEST(NetworkRecords, GlobalEntriesAreTexts) {
    const auto global = NetworkRecords::decodeGlobalIPv4(
        json{{"PrimaryInterface", "en0"}, {"Router", "192.0.2.1"}, {"PrimaryService", "x"}});
    EXPECT_EQ(global, (GlobalIPv4{"en0", "192.0.2.1"}));
}

TEST(NetworkRecords, GlobalEntryOfAnotherTypeIsAbsent) {
    EXPECT_EQ(NetworkRecords::decodeGlobalIPv4(json{{"PrimaryInterface", 7}, {"Router", "192.0.2.1"}}),
              (GlobalIPv4{std::nullopt, "192.0.2.1"}));
    EXPECT_EQ(NetworkRecords::decodeGlobalIPv4(json{{"Router", json::array({"192.0.2.1"})}}), GlobalIPv4{});
}

TEST(NetworkRecords, GlobalValueThatIsNoDictionaryHasNoEntries) {
    EXPECT_EQ(NetworkRecords::decodeGlobalIPv4(json(nullptr)), GlobalIPv4{});
    EXPECT_EQ(NetworkRecords::decodeGlobalIPv4(json::array({1, 2})), GlobalIPv4{});
}

TEST(NetworkRecords, NameServersKeepTheirOrder) {
    EXPECT_EQ(NetworkRecords::decodeNameServers(json{{"ServerAddresses", {"192.0.2.1", "192.0.2.2"}}}),
              (std::vector<std::string>{"192.0.2.1", "192.0.2.2"}));
}

TEST(NetworkRecords, NameServersOfAnotherTypeAreNone) {
    EXPECT_TRUE(NetworkRecords::decodeNameServers(json{{"ServerAddresses", "192.0.2.1"}}).empty());
    EXPECT_TRUE(NetworkRecords::decodeNameServers(json{{"ServerAddresses", {"192.0.2.1", 4}}}).empty());
    EXPECT_TRUE(NetworkRecords::decodeNameServers(json{{"ServerAddresses", json::array()}}).empty());
    EXPECT_TRUE(NetworkRecords::decodeNameServers(json::object()).empty());
    EXPECT_TRUE(NetworkRecords::decodeNameServers(json("text")).empty());
}

TEST(NetworkRecords, ProxyEntriesAreDecodedByTheirTypes) {
    const auto settings = NetworkRecords::decodeProxySettings(json{{"ProxyAutoConfigEnable", 0},
                                                                   {"HTTPEnable", 1},
                                                                   {"HTTPProxy", "web.example"},
                                                                   {"HTTPSEnable", "1"},
                                                                   {"HTTPSProxy", 12},
                                                                   {"SOCKSEnable", 1}});
    ASSERT_TRUE(settings);
    EXPECT_FALSE(settings->isAutomatic);
    EXPECT_EQ(settings->http, (ProxyWay{true, "web.example"}));
    EXPECT_EQ(settings->https, (ProxyWay{false, ""})) << "neither is of its type";
    EXPECT_EQ(settings->socks, (ProxyWay{true, ""}));
}

TEST(NetworkRecords, AutomaticProxyIsAnyNonZeroInteger) {
    EXPECT_TRUE(NetworkRecords::decodeProxySettings(json{{"ProxyAutoConfigEnable", -1}})->isAutomatic);
    EXPECT_FALSE(NetworkRecords::decodeProxySettings(json{{"ProxyAutoConfigEnable", 0.5}})->isAutomatic);
}

TEST(NetworkRecords, ProxyValueThatIsNoDictionaryIsNone) {
    EXPECT_EQ(NetworkRecords::decodeProxySettings(json(nullptr)), std::nullopt);
    EXPECT_EQ(NetworkRecords::decodeProxySettings(json(3)), std::nullopt);
}

}  // namespace
}  // namespace velmora
