#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

// What the latency probes send and hear. Both ports block the calling worker, never the main thread.

namespace velmora {

/// A datagram socket for ICMP (`socket` with `SOCK_DGRAM` and `IPPROTO_ICMP`), closed when destroyed.
class EchoSocket {
public:
    virtual ~EchoSocket() = default;
    /// Sends an ICMP message to an IPv4 literal. False if less than one byte went out.
    virtual bool send(const std::string& host, std::span<const std::uint8_t> message) = 0;
    /// Takes one datagram, IPv4 header first. The number of bytes, 0 on a timeout or failure.
    virtual std::size_t receive(std::span<std::uint8_t> buffer) = 0;
};

class EchoSocketFactory {
public:
    virtual ~EchoSocketFactory() = default;
    /// Null if the system grants no such socket. A receive waits `timeoutSeconds`.
    virtual std::unique_ptr<EchoSocket> open(int timeoutSeconds) = 0;
    /// Ends every receive under way and to come at once. Callable from any thread, for when the program ends.
    virtual void interrupt() = 0;
};

enum class ConnectionState { setup, preparing, waiting, ready, failed, cancelled, timedOut };

/// Stands for `NWConnection` over plain TCP with its timer.
class ConnectionProbe {
public:
    virtual ~ConnectionProbe() = default;
    /// Connects to an IPv4 literal, tells each new state on the calling thread, and `timedOut` when the time
    /// is over first; returns when nothing more will be told. The connection is closed by then.
    virtual void run(const std::string& host, std::uint16_t port, double timeoutSeconds,
                     const std::function<void(ConnectionState)>& tell) = 0;
    /// Ends the run under way, and any to come, as cancelled. Callable from any thread.
    virtual void interrupt() = 0;
};

}  // namespace velmora
