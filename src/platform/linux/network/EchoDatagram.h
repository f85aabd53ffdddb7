#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

// Linux changes what goes over a datagram socket for ICMP: it replaces the identifier by the socket's own
// number, and hands the answer out without its IPv4 header. Here that is undone, so that the answer looks as
// it did on the wire, to a program that had its identifier left alone.

namespace velmora::EchoDatagram {

constexpr std::size_t kHeaderSize = 20;

/// Writes the whole datagram into `buffer`: an IPv4 header, and the message in which the wanted identifier
/// stands where the kernel's did, with its checksum. A message with another identifier keeps it. Gives the
/// number of bytes, the message being cut where the buffer ends; 0 for an empty message or a buffer that has
/// no room behind the header.
std::size_t restore(std::span<const std::uint8_t> message, std::uint16_t kernelIdentifier,
                    std::uint16_t wantedIdentifier, std::span<std::uint8_t> buffer);

/// The identifier of a message; 0 for one that is too short to have one.
std::uint16_t identifierOf(std::span<const std::uint8_t> message);

}  // namespace velmora::EchoDatagram
