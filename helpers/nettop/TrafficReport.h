#pragma once

#include "platform/linux/files/SystemRoot.h"
#include "platform/linux/processes/ProcessFolder.h"
#include "platform/linux/traffic/SocketOwners.h"
#include "platform/linux/traffic/TcpSocketList.h"
#include "platform/linux/traffic/TrafficLedger.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace velmora {

/// The traffic of this user's processes as blocks of lines.
class TrafficReport {
public:
    explicit TrafficReport(const SystemRoot& root);

    /// Adds what happened since the last call. False if the kernel does not answer.
    bool takeList();
    /// The lines since the last call; valid until the next. See `TrafficBlock::appendRow` for the scale.
    std::string_view block(double scale);

private:
    /// Looks the name up if the process has none yet.
    void noteName(std::int32_t pid);
    std::string nameOf(std::int32_t pid);

    TcpSocketList m_list;
    SocketOwners m_owners;
    TrafficLedger m_ledger;
    ProcessFolder m_folder;
    const std::uint32_t m_user;
    std::vector<TcpSocket> m_sockets;
    std::vector<TcpSocket> m_destroyed;
    std::vector<std::uint32_t> m_inodes;
    /// By process id: a process may have ended when its last traffic is printed.
    std::unordered_map<std::int32_t, std::string> m_names;
    std::string m_block;
};

}  // namespace velmora
