#pragma once

#include "platform/LatencyPorts.h"
#include "platform/linux/loop/WaitEnd.h"

struct sockaddr;

namespace velmora {

/// A plain TCP connection, past any proxy, that is closed as soon as it stands.
class LinuxConnectionProbe final : public ConnectionProbe {
public:
    void run(const std::string& host, std::uint16_t port, double timeoutSeconds,
             const std::function<void(ConnectionState)>& tell) override;
    void interrupt() override { m_waitEnd.end(); }

private:
    ConnectionState connect(int descriptor, const sockaddr& address, unsigned size,
                            double timeoutSeconds) const;

    WaitEnd m_waitEnd;
};

}  // namespace velmora
