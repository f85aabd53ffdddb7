#include "platform/linux/network/IpText.h"

#include <arpa/inet.h>
#include <netinet/in.h>

#include <array>

namespace velmora {

std::optional<std::string> ipText(int family, std::span<const std::byte> address) {
    const std::size_t size = family == AF_INET ? sizeof(in_addr) : sizeof(in6_addr);
    std::array<char, INET6_ADDRSTRLEN> text{};
    if ((family != AF_INET && family != AF_INET6) || address.size() < size) return std::nullopt;
    if (!::inet_ntop(family, address.data(), text.data(), text.size())) return std::nullopt;
    return std::string(text.data());
}

}  // namespace velmora
