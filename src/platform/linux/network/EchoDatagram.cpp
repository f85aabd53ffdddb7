#include "platform/linux/network/EchoDatagram.h"

#include <netinet/in.h>
#include <algorithm>

namespace velmora::EchoDatagram {
namespace {

constexpr std::size_t kChecksumOffset = 2;
constexpr std::size_t kIdentifierOffset = 4;
constexpr std::size_t kIdentifierEnd = 6;

void storeBigEndian(std::span<std::uint8_t> bytes, std::size_t offset, std::uint16_t value) {
    bytes[offset] = static_cast<std::uint8_t>(value >> 8U);
    bytes[offset + 1] = static_cast<std::uint8_t>(value & 0xFFU);
}

std::uint32_t wordAt(std::span<const std::uint8_t> bytes, std::size_t offset) {
    return (static_cast<std::uint32_t>(bytes[offset]) << 8U) | bytes[offset + 1];
}

/// The checksum after one word of what it covers has changed (RFC 1624).
std::uint16_t updatedChecksum(std::uint32_t checksum, std::uint32_t before, std::uint32_t after) {
    std::uint32_t sum = (~checksum & 0xFFFFU) + (~before & 0xFFFFU) + after;
    while ((sum >> 16U) != 0) sum = (sum & 0xFFFFU) + (sum >> 16U);
    return static_cast<std::uint16_t>(~sum & 0xFFFFU);
}

}  // namespace

std::size_t restore(std::span<const std::uint8_t> message, std::uint16_t kernelIdentifier,
                    std::uint16_t wantedIdentifier, std::span<std::uint8_t> buffer) {
    constexpr std::uint8_t kVersionAndLength = 0x45;
    constexpr std::size_t kLengthOffset = 2;
    constexpr std::size_t kProtocolOffset = 9;
    if (message.empty() || buffer.size() <= kHeaderSize) return 0;
    message = message.first(std::min(message.size(), buffer.size() - kHeaderSize));
    std::fill_n(buffer.begin(), kHeaderSize, std::uint8_t{0});
    buffer[0] = kVersionAndLength;
    storeBigEndian(buffer, kLengthOffset, static_cast<std::uint16_t>(kHeaderSize + message.size()));
    buffer[kProtocolOffset] = IPPROTO_ICMP;
    const std::span<std::uint8_t> copy = buffer.subspan(kHeaderSize, message.size());
    std::ranges::copy(message, copy.begin());
    if (copy.size() >= kIdentifierEnd && identifierOf(copy) == kernelIdentifier) {
        storeBigEndian(copy, kChecksumOffset,
                       updatedChecksum(wordAt(copy, kChecksumOffset), kernelIdentifier, wantedIdentifier));
        storeBigEndian(copy, kIdentifierOffset, wantedIdentifier);
    }
    return kHeaderSize + message.size();
}

std::uint16_t identifierOf(std::span<const std::uint8_t> message) {
    if (message.size() < kIdentifierEnd) return 0;
    return static_cast<std::uint16_t>(wordAt(message, kIdentifierOffset));
}

}  // namespace velmora::EchoDatagram
