#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// One IPv4 address of an interface.
struct InterfaceAddress {
    std::string name;                 ///< The kernel's name of the interface.
    bool isUp = false;                ///< `IFF_UP`.
    bool isLoopback = false;          ///< `IFF_LOOPBACK`.
    std::optional<std::string> text;  ///< In digits; nothing if it could not be written so.
    friend bool operator==(const InterfaceAddress&, const InterfaceAddress&) = default;
};

/// What the link layer of one interface says.
struct InterfaceLink {
    std::vector<std::uint8_t> address;
    std::uint64_t baudRate = 0;  ///< Bits per second; 0 if unknown.
    friend bool operator==(const InterfaceLink&, const InterfaceLink&) = default;
};

/// Stands for `getifaddrs` with `getnameinfo`. Bounded reads on the main thread.
class InterfaceAddressSource {
public:
    virtual ~InterfaceAddressSource() = default;
    /// Every `AF_INET` entry in the kernel's order; empty on failure.
    virtual std::vector<InterfaceAddress> ipv4Addresses() = 0;
    /// The `AF_LINK` entries of the interface in the kernel's order; empty on failure.
    virtual std::vector<InterfaceLink> links(const std::string& name) = 0;
    /// True for an interface that may give the machine's address in its local network: those whose name
    /// begins with "en" on the program's first home.
    virtual bool isLanName(std::string_view name) = 0;
    /// True for an interface that is one end of a tunnel: "utun", "ppp" and "ipsec" on the first home.
    virtual bool isTunnelName(std::string_view name) = 0;
};

}  // namespace velmora
