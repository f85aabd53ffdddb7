#include "samplers/EchoMessage.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace velmora {
namespace {

/// A reply as it comes from the wire, behind an IPv4 header of that many words.
std::vector<std::uint8_t> reply(std::uint16_t identifier, std::uint8_t type = 0,
                                std::uint8_t headerWords = 5) {
    std::vector<std::uint8_t> datagram(headerWords * 4U + 16U);
    datagram[0] = static_cast<std::uint8_t>(0x40U | headerWords);
    const std::size_t start = headerWords * 4U;
    datagram[start] = type;
    datagram[start + 4] = static_cast<std::uint8_t>(identifier >> 8U);
    datagram[start + 5] = static_cast<std::uint8_t>(identifier & 0xFFU);
    return datagram;
}

TEST(EchoMessage, ChecksumOfIdentifierOneIsF7FD) {
    // 0x0800 for type and code, 1 for the identifier and 1 for the sequence number sum to 0x0802.
    const EchoMessage::Request request = EchoMessage::request(0x0001);
    EXPECT_EQ(request[2], 0xF7);
    EXPECT_EQ(request[3], 0xFD);
}

TEST(EchoMessage, RequestHasItsFieldsAndZeroPayload) {
    const EchoMessage::Request request = EchoMessage::request(0xABCD);
    EXPECT_EQ(request[0], 8);
    EXPECT_EQ(request[1], 0);
    EXPECT_EQ(request[4], 0xAB);
    EXPECT_EQ(request[5], 0xCD);
    EXPECT_EQ(request[6], 0);
    EXPECT_EQ(request[7], 1);
    for (std::size_t offset = 8; offset < 16; ++offset) EXPECT_EQ(request[offset], 0);
}

TEST(EchoMessage, ChecksumOverAWholeMessageIsZero) {
    EXPECT_EQ(EchoMessage::icmpChecksum(EchoMessage::request(0x1234)), 0);
}

TEST(EchoMessage, OddByteIsTheHighByteOfAWord) {
    const std::vector<std::uint8_t> bytes = {0x00, 0x01, 0x02};
    EXPECT_EQ(EchoMessage::icmpChecksum(bytes), 0xFDFE);
}

TEST(EchoMessage, CarriesAreFoldedIn) {
    const std::vector<std::uint8_t> bytes = {0xFF, 0xFF, 0x00, 0x02};
    EXPECT_EQ(EchoMessage::icmpChecksum(bytes), 0xFFFD);
}

TEST(EchoMessage, ChecksumOfNothingIsAllOnes) {
    EXPECT_EQ(EchoMessage::icmpChecksum({}), 0xFFFF);
}

TEST(EchoMessage, OwnReplyIsTaken) {
    EXPECT_TRUE(EchoMessage::isReply(reply(0x1234), 0x1234));
}

TEST(EchoMessage, HeaderWithOptionsIsSteppedOver) {
    EXPECT_TRUE(EchoMessage::isReply(reply(0x1234, 0, 15), 0x1234));
}

TEST(EchoMessage, ForeignIdentifierIsNoReply) {
    EXPECT_FALSE(EchoMessage::isReply(reply(0x1234), 0x1235));
}

TEST(EchoMessage, OtherTypeIsNoReply) {
    EXPECT_FALSE(EchoMessage::isReply(reply(0x1234, 8), 0x1234));
}

TEST(EchoMessage, ReplyNeedsItsWholeHeader) {
    auto datagram = reply(0x1234);
    datagram.resize(28);
    EXPECT_TRUE(EchoMessage::isReply(datagram, 0x1234));
    datagram.resize(27);
    EXPECT_FALSE(EchoMessage::isReply(datagram, 0x1234));
}

TEST(EchoMessage, HeaderLengthBeyondTheDatagramIsNoReply) {
    auto datagram = reply(0x1234);
    datagram[0] = 0x4F;
    EXPECT_FALSE(EchoMessage::isReply(datagram, 0x1234));
}

TEST(EchoMessage, EmptyDatagramIsNoReply) {
    EXPECT_FALSE(EchoMessage::isReply({}, 0));
}

}  // namespace
}  // namespace velmora
