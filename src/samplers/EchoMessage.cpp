#include "samplers/EchoMessage.h"

#include <cstddef>

namespace velmora::EchoMessage {
namespace {

constexpr std::uint8_t kEchoRequest = 8;
constexpr std::uint8_t kEchoReply = 0;
constexpr std::size_t kChecksumOffset = 2;
constexpr std::size_t kIdentifierOffset = 4;
constexpr std::size_t kSequenceOffset = 6;
constexpr std::size_t kHeaderSize = 8;

void storeBigEndian(Request& message, std::size_t offset, std::uint16_t value) {
    message[offset] = static_cast<std::uint8_t>(value >> 8U);
    message[offset + 1] = static_cast<std::uint8_t>(value & 0xFFU);
}

}  // namespace

std::uint16_t icmpChecksum(std::span<const std::uint8_t> bytes) {
    std::uint64_t sum = 0;
    for (std::size_t offset = 0; offset < bytes.size(); offset += 2) {
        sum += static_cast<std::uint64_t>(bytes[offset]) << 8U;
        if (offset + 1 < bytes.size()) sum += bytes[offset + 1];
    }
    while ((sum >> 16U) != 0) sum = (sum & 0xFFFFU) + (sum >> 16U);
    return static_cast<std::uint16_t>(~sum & 0xFFFFU);
}

Request request(std::uint16_t identifier) {
    Request message{};
    message[0] = kEchoRequest;
    storeBigEndian(message, kIdentifierOffset, identifier);
    storeBigEndian(message, kSequenceOffset, 1);
    storeBigEndian(message, kChecksumOffset, icmpChecksum(message));
    return message;
}

bool isReply(std::span<const std::uint8_t> datagram, std::uint16_t identifier) {
    if (datagram.empty()) return false;
    const std::size_t header = static_cast<std::size_t>(datagram[0] & 15U) * 4;
    if (header + kHeaderSize > datagram.size() || datagram[header] != kEchoReply) return false;
    const auto high = static_cast<std::uint32_t>(datagram[header + kIdentifierOffset]) << 8U;
    return (high | datagram[header + kIdentifierOffset + 1]) == identifier;
}

}  // namespace velmora::EchoMessage
