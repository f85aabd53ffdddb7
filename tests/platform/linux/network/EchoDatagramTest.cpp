#include "platform/linux/network/EchoDatagram.h"

#include "samplers/EchoMessage.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace velmora {
namespace {

/// What the kernel hands out: the reply to a request with its own identifier, no IPv4 header.
EchoMessage::Request replyWith(std::uint16_t identifier) {
    EchoMessage::Request message = EchoMessage::request(identifier);
    message[0] = 0;
    message[2] = message[3] = 0;
    const std::uint16_t checksum = EchoMessage::icmpChecksum(message);
    message[2] = static_cast<std::uint8_t>(checksum >> 8U);
    message[3] = static_cast<std::uint8_t>(checksum & 0xFFU);
    return message;
}

TEST(EchoDatagram, KernelsIdentifierIsReplacedByTheWantedOne) {
    std::array<std::uint8_t, 512> buffer{};
    const std::size_t length = EchoDatagram::restore(replyWith(0x4C8E), 0x4C8E, 0x1234, buffer);
    ASSERT_EQ(length, 36U);
    EXPECT_TRUE(EchoMessage::isReply(std::span(buffer).first(length), 0x1234));
}

TEST(EchoDatagram, ChecksumFollowsTheIdentifier) {
    for (const std::uint16_t wanted : {std::uint16_t{1}, std::uint16_t{0x1234}, std::uint16_t{0xFFFF}}) {
        for (const std::uint16_t kernel : {std::uint16_t{1}, std::uint16_t{0x8000}, std::uint16_t{0xFFFF}}) {
            std::array<std::uint8_t, 64> buffer{};
            EchoDatagram::restore(replyWith(kernel), kernel, wanted, buffer);
            EXPECT_EQ(EchoMessage::icmpChecksum(std::span(buffer).subspan(20, 16)), 0)
                << kernel << ' ' << wanted;
        }
    }
}

TEST(EchoDatagram, HeaderSaysItsLengthAndProtocol) {
    std::array<std::uint8_t, 64> buffer{};
    buffer.fill(0xEE);
    EchoDatagram::restore(replyWith(7), 7, 7, buffer);
    EXPECT_EQ(buffer[0], 0x45);
    EXPECT_EQ(buffer[2], 0);
    EXPECT_EQ(buffer[3], 36);
    EXPECT_EQ(buffer[9], 1);
    EXPECT_EQ(buffer[1], 0);
}

TEST(EchoDatagram, ForeignIdentifierIsKept) {
    std::array<std::uint8_t, 64> buffer{};
    const std::size_t length = EchoDatagram::restore(replyWith(0x0055), 0x4C8E, 0x1234, buffer);
    EXPECT_FALSE(EchoMessage::isReply(std::span(buffer).first(length), 0x1234));
    EXPECT_TRUE(EchoMessage::isReply(std::span(buffer).first(length), 0x0055));
}

TEST(EchoDatagram, EmptyMessageOrFullBufferGivesNothing) {
    std::array<std::uint8_t, 20> small{};
    EXPECT_EQ(EchoDatagram::restore(replyWith(1), 1, 1, small), 0U);
    std::array<std::uint8_t, 64> buffer{};
    EXPECT_EQ(EchoDatagram::restore({}, 1, 1, buffer), 0U);
}

TEST(EchoDatagram, ShortMessageIsHandedOnAsItIs) {
    std::array<std::uint8_t, 64> buffer{};
    const std::vector<std::uint8_t> message = {0, 0, 0, 0, 0};
    EXPECT_EQ(EchoDatagram::restore(message, 0, 9, buffer), 25U);
    EXPECT_EQ(EchoDatagram::identifierOf(message), 0);
}

TEST(EchoDatagram, MessageIsCutWhereTheBufferEnds) {
    std::array<std::uint8_t, 30> buffer{};
    EXPECT_EQ(EchoDatagram::restore(replyWith(1), 1, 2, buffer), 30U);
}

}  // namespace
}  // namespace velmora
