#pragma once

#include "platform/linux/traffic/InetDiagMessages.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

namespace velmora {

/// What one process received and sent over its sockets in an interval.
struct ProcessTraffic {
    std::int32_t pid = 0;
    std::uint64_t received = 0;
    std::uint64_t sent = 0;
    friend bool operator==(const ProcessTraffic&, const ProcessTraffic&) = default;
};

/// Adds up traffic by process from lists of sockets, and from notices of sockets that ended between two
/// lists. A notice names no process, so it is matched with an earlier list by the socket's cookie; a
/// connection that no list has seen stays unknown. A socket that comes new in a list counts whole: it began
/// since the last one.
class TrafficLedger {
public:
    /// The process of a socket; nothing if it is none of this user's.
    using OwnerOf = std::function<std::optional<std::int32_t>(const TcpSocket&)>;

    void take(std::span<const TcpSocket> sockets, const OwnerOf& ownerOf);
    /// Comes after the list: a socket that ended before the list was made is in none.
    void takeDestroyed(std::span<const TcpSocket> sockets);

    /// The traffic since the last call of all processes with a socket, by ascending process id.
    std::vector<ProcessTraffic> endInterval();
    /// Inodes of the sockets that had traffic since the last `endInterval`.
    std::vector<std::uint32_t> busyInodes() const;

    std::size_t socketCount() const { return m_sockets.size(); }

private:
    struct Known {
        std::int32_t pid = 0;  ///< 0 for none.
        std::uint32_t inode = 0;
        std::uint64_t received = 0;
        std::uint64_t sent = 0;
        std::uint32_t lastList = 0;
        bool isBusy = false;
    };
    void add(Known& known, const TcpSocket& socket);

    std::uint32_t m_list = 0;
    std::unordered_map<std::uint64_t, Known> m_sockets;  ///< By cookie.
    std::map<std::int32_t, ProcessTraffic> m_traffic;
};

}  // namespace velmora
