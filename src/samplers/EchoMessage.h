#pragma once

#include <array>
#include <cstdint>
#include <span>

// The ICMP echo request that the latency probe sends (RFC 792), and what counts as its answer.

namespace velmora::EchoMessage {

using Request = std::array<std::uint8_t, 16>;

/// The Internet checksum (RFC 1071) of the bytes, an odd one at the end being the high byte of a word.
std::uint16_t icmpChecksum(std::span<const std::uint8_t> bytes);

/// A request with sequence number 1 and eight zero bytes of payload.
Request request(std::uint16_t identifier);

/// True if the datagram, IPv4 header first, is an echo reply with that identifier.
bool isReply(std::span<const std::uint8_t> datagram, std::uint16_t identifier);

}  // namespace velmora::EchoMessage
