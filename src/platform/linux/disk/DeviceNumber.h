#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// The kernel's number of a device. What kind of device it is cannot be read off it; a major number of 0
/// stands for no device at all, such as a network mount.
struct DeviceNumber {
    std::uint32_t major = 0;
    std::uint32_t minor = 0;
    // The check takes the 0 that the compiler compares with for one of ours.
    friend auto operator<=>(const DeviceNumber&,
                            const DeviceNumber&) = default;  // NOLINT(modernize-use-nullptr)

    /// "259:3", as the kernel's files write it.
    std::string text() const;
    /// Nothing for any other text.
    static std::optional<DeviceNumber> parse(std::string_view text);
};

}  // namespace velmora
