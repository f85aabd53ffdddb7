#pragma once

#include "platform/linux/network/NetlinkMessages.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

// The kernel's list of TCP sockets (NETLINK_SOCK_DIAG, see sock_diag(7)) and its notices of sockets that it
// destroys. The notices carry final counters, but neither inode nor user any more.

namespace velmora {

/// One TCP socket of a dump or a notice.
struct TcpSocket {
    std::uint64_t cookie = 0;  ///< Names the socket for good, in dumps and notices alike.
    std::uint32_t inode = 0;   ///< 0 while no process has it open, and in notices.
    std::uint32_t user = 0;    ///< Meaningless in notices.
    bool isLoopback = false;   ///< Both ends are on this machine.
    std::uint64_t received = 0;
    std::uint64_t sent = 0;  ///< And acknowledged.
    friend bool operator==(const TcpSocket&, const TcpSocket&) = default;
};

namespace InetDiag {

/// Asks for all TCP sockets of a family that are or were connected, with their counters.
std::vector<std::byte> dumpRequest(std::uint8_t family);

/// Nothing for a message of another kind, a cut one, and one without counters.
///
/// The kernel counts the marks for the beginning and the end of a connection as a byte each. They are taken
/// off as far as the state tells of them, so that a connection without data has no traffic.
std::optional<TcpSocket> parse(const Netlink::Message& message);

}  // namespace InetDiag

}  // namespace velmora
