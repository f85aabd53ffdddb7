#pragma once

#include <cstdint>
#include <vector>

namespace velmora {

/// Cumulative bytes of one network interface.
struct InterfaceCounters {
    bool isLoopback = false;
    std::uint64_t receivedBytes = 0;
    std::uint64_t sentBytes = 0;
    friend bool operator==(const InterfaceCounters&, const InterfaceCounters&) = default;
};

/// Stands for `sysctl` with `NET_RT_IFLIST2`. One bounded read on the main thread.
class InterfaceCounterSource {
public:
    virtual ~InterfaceCounterSource() = default;
    /// Replaces `interfaces`, reusing its storage, with the interfaces whose traffic is the machine's own, in
    /// the kernel's order. False if they cannot be read; `interfaces` is then unspecified.
    virtual bool read(std::vector<InterfaceCounters>& interfaces) = 0;
};

}  // namespace velmora
