#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>

namespace velmora {

/// The address in digits, IPv4 from the first four bytes, IPv6 from the first 16; nothing for fewer bytes or
/// another family.
std::optional<std::string> ipText(int family, std::span<const std::byte> address);

}  // namespace velmora
