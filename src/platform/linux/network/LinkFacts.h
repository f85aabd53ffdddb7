#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmora {

/// What the kernel says about one network interface.
struct LinkFacts {
    int index = 0;
    std::uint32_t flags = 0;  ///< `IFF_UP` and the like.
    std::uint16_t type = 0;   ///< `ARPHRD_ETHER` and the like.
    std::string name;
    std::string kind;  ///< "veth", "bridge"…; empty for hardware, and where only files tell.
    std::vector<std::uint8_t> address;  ///< Of the link layer; empty if it has none.

    bool hasDevice = false;  ///< Stands on hardware, a virtual machine's counting as such.
    bool hasLower = false;   ///< Stands on another interface.
    bool isUsb = false;
    bool isWireless = false;
    std::uint32_t tunFlags = 0;  ///< `IFF_TUN` or `IFF_TAP`, 0 for what a program has not made.
    std::string deviceType;      ///< "wlan", "wwan", "bluetooth", "bridge"…; often empty.

    friend bool operator==(const LinkFacts&, const LinkFacts&) = default;
};

}  // namespace velmora
