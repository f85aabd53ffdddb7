#pragma once

#include "platform/LatencyPorts.h"
#include "platform/MonotonicClock.h"
#include "platform/WorkQueue.h"
#include "samplers/Samplers.h"

#include <cstdint>
#include <functional>
#include <string>

namespace velmora {

/// Measures round trips to one address, by an ICMP echo or, where the system grants no socket for that, by
/// opening a TCP connection. A probe runs on the worker and completes there, exactly once. The ports must
/// outlive the worker, which may end after this object.
class LatencyProbes {
public:
    /// Gives 1...65535 on any thread.
    using IdentifierSource = std::function<std::uint16_t()>;

    /// The address is an IPv4 literal. With an empty one there are no probes.
    LatencyProbes(std::string address, WorkQueue& worker, EchoSocketFactory& sockets,
                  ConnectionProbe& connections, const MonotonicClock& clock,
                  IdentifierSource drawIdentifier = randomIdentifier);
    LatencyProbes(const LatencyProbes&) = delete;
    LatencyProbes& operator=(const LatencyProbes&) = delete;
    /// Interrupts the probe under way, so that the worker can end.
    ~LatencyProbes();

    /// An echo request to the address that waits two seconds; null without an address.
    PingProbe icmpProbe();
    /// The fallback; null without an address.
    PingProbe connectionProbe();

    /// Sends one echo request and takes one datagram: any other than the answer counts as a loss. Only whole
    /// seconds of the timeout count.
    void icmpPing(const std::string& host, double timeout, PingCompletion completion);
    /// Opens a connection to the address's port 443 within 3 seconds.
    void measurePing(PingCompletion completion);

    static std::uint16_t randomIdentifier();

private:
    std::string m_address;
    WorkQueue& m_worker;
    EchoSocketFactory& m_sockets;
    ConnectionProbe& m_connections;
    const MonotonicClock& m_clock;
    IdentifierSource m_drawIdentifier;
};

}  // namespace velmora
