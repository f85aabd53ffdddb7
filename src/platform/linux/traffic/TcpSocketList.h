#pragma once

#include "platform/linux/files/FileDescriptor.h"
#include "platform/linux/network/NetlinkSocket.h"
#include "platform/linux/traffic/InetDiagMessages.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace velmora {

/// Asks the kernel for its TCP sockets, and collects its notices of those that it destroyed in between. The
/// notices are waited for from the making of this object on, so that a connection which ends between two
/// lists still tells its last bytes.
class TcpSocketList {
public:
    TcpSocketList();

    /// Replaces `sockets` with all TCP sockets that are or were connected. False if the kernel refuses, also
    /// if it does so halfway.
    bool list(std::vector<TcpSocket>& sockets);
    /// Replaces `sockets` with those destroyed since the last call. Some are lost if there were very many.
    void takeDestroyed(std::vector<TcpSocket>& sockets);

private:
    std::optional<NetlinkSocket> m_questions;
    FileDescriptor m_notices;
    std::unique_ptr<std::byte[]> m_buffer;
    std::vector<std::byte> m_requestV4;
    std::vector<std::byte> m_requestV6;
    bool m_knowsV6 = false;  ///< The kernel has listed such sockets before.
};

}  // namespace velmora
