#include "nettop/TrafficReport.h"

#include "platform/linux/processes/ProcPidStat.h"
#include "platform/linux/processes/ProcessTable.h"
#include "platform/linux/traffic/TrafficBlock.h"

#include <unistd.h>

#include <utility>

namespace velmora {

TrafficReport::TrafficReport(const SystemRoot& root) : m_owners(root), m_folder(root), m_user(::geteuid()) {}

bool TrafficReport::takeList() {
    const bool isListed = m_list.list(m_sockets);
    m_list.takeDestroyed(m_destroyed);
    if (isListed) {
        std::erase_if(m_sockets, [this](const TcpSocket& socket) {
            // A socket without an inode has no process any more, and tells no user either.
            return socket.isLoopback || (socket.inode != 0 && socket.user != m_user);
        });
        m_inodes.clear();
        for (const TcpSocket& socket : m_sockets) m_inodes.push_back(socket.inode);
        m_owners.update(m_inodes);
        m_ledger.take(m_sockets, [this](const TcpSocket& socket) {
            const auto owner = m_owners.owner(socket.inode);
            if (owner) noteName(*owner);
            return owner;
        });
    }
    m_ledger.takeDestroyed(m_destroyed);
    return isListed;
}

std::string_view TrafficReport::block(double scale) {
    for (const std::uint32_t inode : m_ledger.busyInodes()) m_owners.recheck(inode);
    m_block.clear();
    TrafficBlock::appendHeader(m_block);
    std::unordered_map<std::int32_t, std::string> names;
    for (const ProcessTraffic& traffic : m_ledger.endInterval()) {
        std::string& name = names[traffic.pid];
        name = nameOf(traffic.pid);
        if (name.empty()) name = std::move(m_names[traffic.pid]);
        TrafficBlock::appendRow(m_block, TrafficBlock::lineName(name), traffic, scale);
    }
    m_names.swap(names);
    return m_block;
}

void TrafficReport::noteName(std::int32_t pid) {
    const auto [entry, isNew] = m_names.try_emplace(pid);
    if (isNew) entry->second = nameOf(pid);
}

std::string TrafficReport::nameOf(std::int32_t pid) {
    const auto text = m_folder.read(pid, "stat");
    const auto stat = text ? parseProcPidStat(*text) : std::nullopt;
    return stat ? ProcessTable::programName(m_folder, pid, stat->comm) : std::string();
}

}  // namespace velmora
