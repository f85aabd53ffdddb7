#pragma once

#include "platform/LatencyPorts.h"
#include "platform/linux/loop/WaitEnd.h"

#include <memory>

namespace velmora {

/// Unprivileged ICMP sockets. Which groups of users get one is the administrator's choice
/// (`net.ipv4.ping_group_range`); many systems grant them to nobody, root included.
class LinuxEchoSockets final : public EchoSocketFactory {
public:
    std::unique_ptr<EchoSocket> open(int timeoutSeconds) override;
    void interrupt() override { m_waitEnd.end(); }

private:
    WaitEnd m_waitEnd;
};

}  // namespace velmora
