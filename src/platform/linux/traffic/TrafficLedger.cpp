#include "platform/linux/traffic/TrafficLedger.h"

#include <algorithm>

namespace velmora {

void TrafficLedger::take(std::span<const TcpSocket> sockets, const OwnerOf& ownerOf) {
    ++m_list;
    for (const TcpSocket& socket : sockets) {
        if (socket.isLoopback) continue;
        Known& known = m_sockets[socket.cookie];
        known.lastList = m_list;
        // A socket that its process has closed is still sending what is left, for the process that had it.
        if (socket.inode != 0) {
            known.inode = socket.inode;
            if (const auto owner = ownerOf(socket)) known.pid = *owner;
        }
        add(known, socket);
    }
    // The notice of a socket that this list lacks may be on its way, so it is kept for one more.
    std::erase_if(m_sockets, [this](const auto& entry) { return m_list - entry.second.lastList > 1; });
}

void TrafficLedger::takeDestroyed(std::span<const TcpSocket> sockets) {
    for (const TcpSocket& socket : sockets) {
        const auto known = m_sockets.find(socket.cookie);
        if (known == m_sockets.end()) continue;
        add(known->second, socket);
        m_sockets.erase(known);
    }
}

void TrafficLedger::add(Known& known, const TcpSocket& socket) {
    const std::uint64_t received = socket.received > known.received ? socket.received - known.received : 0;
    const std::uint64_t sent = socket.sent > known.sent ? socket.sent - known.sent : 0;
    known.received = std::max(known.received, socket.received);
    known.sent = std::max(known.sent, socket.sent);
    if (known.pid == 0) return;
    ProcessTraffic& traffic = m_traffic[known.pid];
    traffic.pid = known.pid;
    traffic.received += received;
    traffic.sent += sent;
    known.isBusy = known.isBusy || received + sent > 0;
}

std::vector<ProcessTraffic> TrafficLedger::endInterval() {
    std::vector<ProcessTraffic> traffic;
    traffic.reserve(m_traffic.size());
    for (const auto& [pid, ofProcess] : m_traffic) traffic.push_back(ofProcess);
    m_traffic.clear();
    for (auto& [cookie, known] : m_sockets) known.isBusy = false;
    return traffic;
}

std::vector<std::uint32_t> TrafficLedger::busyInodes() const {
    std::vector<std::uint32_t> inodes;
    for (const auto& [cookie, known] : m_sockets) {
        if (known.isBusy) inodes.push_back(known.inode);
    }
    return inodes;
}

}  // namespace velmora
