#include "platform/linux/network/NetlinkMessages.h"

#include "platform/linux/network/NetlinkBytes.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace velmora {
namespace {

/// Header of a message with the given length, type 16, no flags, sequence number 3, port 0.
NetlinkBytes header(std::uint32_t length) {
    NetlinkBytes bytes;
    bytes.value(length)
        .value(std::uint16_t{16})
        .value(std::uint16_t{2})
        .value(std::uint32_t{3})
        .value(std::uint32_t{0});
    return bytes;
}

TEST(NetlinkMessages, MessagesAreTakenOneAfterTheOther) {
    NetlinkBytes bytes = header(18);
    bytes.bytes({7, 8, 0, 0});
    bytes.value(std::uint32_t{16})
        .value(std::uint16_t{17})
        .value(std::uint16_t{0})
        .value(std::uint32_t{4})
        .value(std::uint32_t{0});
    Netlink::Bytes rest = bytes.get();
    const auto first = Netlink::nextMessage(rest);
    ASSERT_TRUE(first);
    EXPECT_EQ(first->type, 16);
    EXPECT_EQ(first->flags, 2);
    EXPECT_EQ(first->sequence, 3U);
    EXPECT_EQ(first->body.size(), 2U);
    const auto second = Netlink::nextMessage(rest);
    ASSERT_TRUE(second);
    EXPECT_EQ(second->type, 17);
    EXPECT_TRUE(second->body.empty());
    EXPECT_FALSE(Netlink::nextMessage(rest));
}

TEST(NetlinkMessages, MessageShorterThanItsHeaderEndsTheWalk) {
    for (const std::uint32_t length : {0U, 15U}) {
        const NetlinkBytes bytes = header(length);
        Netlink::Bytes rest = bytes.get();
        EXPECT_FALSE(Netlink::nextMessage(rest));
        EXPECT_TRUE(rest.empty());
    }
}

TEST(NetlinkMessages, MessageLongerThanTheRestEndsTheWalk) {
    for (const std::uint32_t length : {17U, 0xFFFFFFFFU}) {
        const NetlinkBytes bytes = header(length);
        Netlink::Bytes rest = bytes.get();
        EXPECT_FALSE(Netlink::nextMessage(rest));
    }
}

TEST(NetlinkMessages, HeaderThatIsCutOffEndsTheWalk) {
    const NetlinkBytes bytes = header(16);
    for (std::size_t length = 0; length < 16; ++length) {
        Netlink::Bytes rest = Netlink::Bytes(bytes.get()).first(length);
        EXPECT_FALSE(Netlink::nextMessage(rest));
    }
}

TEST(NetlinkMessages, AttributesArePaddedToFourBytes) {
    NetlinkBytes bytes;
    bytes.attribute(5, NetlinkBytes().bytes({1})).attribute(6, NetlinkBytes().bytes({2, 3}));
    Netlink::Bytes rest = bytes.get();
    const auto first = Netlink::nextAttribute(rest);
    ASSERT_TRUE(first);
    EXPECT_EQ(first->type, 5);
    EXPECT_EQ(first->value.size(), 1U);
    const auto second = Netlink::nextAttribute(rest);
    ASSERT_TRUE(second);
    EXPECT_EQ(second->type, 6);
    EXPECT_EQ(second->value.size(), 2U);
    EXPECT_FALSE(Netlink::nextAttribute(rest));
}

TEST(NetlinkMessages, FlagsOfAnAttributeAreNoPartOfItsType) {
    NetlinkBytes bytes;
    bytes.attribute(0x8005, NetlinkBytes()).attribute(0x4006, NetlinkBytes());
    Netlink::Bytes rest = bytes.get();
    EXPECT_EQ(Netlink::nextAttribute(rest)->type, 5);
    EXPECT_EQ(Netlink::nextAttribute(rest)->type, 6);
}

TEST(NetlinkMessages, AttributeOfAnImpossibleLengthEndsTheWalk) {
    for (const std::uint16_t length :
         {std::uint16_t{0}, std::uint16_t{3}, std::uint16_t{9}, std::uint16_t{65535}}) {
        NetlinkBytes bytes;
        bytes.value(length).value(std::uint16_t{1}).value(std::uint32_t{0});
        Netlink::Bytes rest = bytes.get();
        EXPECT_FALSE(Netlink::nextAttribute(rest)) << length;
        EXPECT_TRUE(rest.empty());
    }
}

TEST(NetlinkMessages, LastAttributeNeedsNoPadding) {
    NetlinkBytes bytes;
    bytes.value(std::uint16_t{5}).value(std::uint16_t{1}).bytes({9});
    Netlink::Bytes rest = bytes.get();
    EXPECT_TRUE(Netlink::nextAttribute(rest));
    EXPECT_TRUE(rest.empty());
}

TEST(NetlinkMessages, BodyShorterThanItsRecordHasNoAttributes) {
    const NetlinkBytes bytes = header(16);
    EXPECT_TRUE(Netlink::attributesBehind(bytes.get(), 17).empty());
    EXPECT_EQ(Netlink::attributesBehind(bytes.get(), 13).size(), 0U) << "records are padded too";
    EXPECT_EQ(Netlink::attributesBehind(bytes.get(), 12).size(), 4U);
}

TEST(NetlinkMessages, ValueNeedsAllItsBytes) {
    const NetlinkBytes bytes = NetlinkBytes().bytes({1, 0, 0});
    EXPECT_EQ(Netlink::valueOf<std::uint16_t>(bytes.get()), 1);
    EXPECT_EQ(Netlink::valueOf<std::uint32_t>(bytes.get()), std::nullopt);
}

TEST(NetlinkMessages, TextEndsAtItsTerminatorOrAtTheEnd) {
    EXPECT_EQ(Netlink::textOf(NetlinkBytes().text(std::string_view("eth0\0x", 6)).get()), "eth0");
    EXPECT_EQ(Netlink::textOf(NetlinkBytes().text("eth0").get()), "eth0");
    EXPECT_EQ(Netlink::textOf({}), "");
}

TEST(NetlinkMessages, RequestIsReadAsItWasBuilt) {
    const std::vector<std::byte> request = Netlink::RequestBuilder(26, 0x300)
                                               .record(std::uint32_t{0x01020304})
                                               .attributeOf(3, std::uint8_t{9})
                                               .attributeOf(4, std::uint32_t{10})
                                               .bytes();
    Netlink::Bytes rest = request;
    const auto message = Netlink::nextMessage(rest);
    ASSERT_TRUE(message);
    EXPECT_TRUE(rest.empty());
    EXPECT_EQ(message->type, 26);
    EXPECT_EQ(message->flags, 0x301) << "every request is marked as one";
    Netlink::Bytes attributes = Netlink::attributesBehind(message->body, 4);
    EXPECT_EQ(Netlink::valueOf<std::uint8_t>(Netlink::nextAttribute(attributes)->value), 9);
    EXPECT_EQ(Netlink::valueOf<std::uint32_t>(Netlink::nextAttribute(attributes)->value), 10U);
}

}  // namespace
}  // namespace velmora
