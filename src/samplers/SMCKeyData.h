#pragma once

#include "platform/ControllerConnection.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace velmora {

/// What the controller says of a key.
struct SMCKeyInfo {
    std::uint32_t dataSize = 0;  ///< Bytes of the value.
    std::uint32_t dataType = 0;  ///< Four characters, the first in the most significant byte.
    std::uint8_t dataAttributes = 0;
    friend bool operator==(const SMCKeyInfo&, const SMCKeyInfo&) = default;
};

/// The value of a key: as many of the bytes as its size says.
struct SMCValue {
    SMCKeyInfo info;
    std::array<std::byte, 32> bytes{};
    friend bool operator==(const SMCValue&, const SMCValue&) = default;

    /// Big-endian and unsigned. Of sizes beyond 3 the first four bytes count; size 0 gives 0.
    std::uint32_t integer() const;
    /// Revolutions per minute of the types "fpe2" (quarters, two bytes, big-endian) and "flt " (a 32-bit
    /// float in the machine's order); nothing for another type.
    std::optional<double> speed() const;
};

/// A request to the system management controller, and its answer: 76 bytes in the machine's order.
struct SMCKeyData {
    static constexpr std::uint8_t kReadKey = 5;
    static constexpr std::uint8_t kGetKeyInfo = 9;

    std::uint32_t key = 0;  ///< Four characters, the first in the most significant byte.
    SMCKeyInfo keyInfo;
    std::uint8_t result = 0;  ///< Other than 0: the controller refused.
    std::uint8_t status = 0;
    std::uint8_t data8 = 0;  ///< The command.
    std::uint32_t data32 = 0;
    std::array<std::byte, 32> bytes{};
    friend bool operator==(const SMCKeyData&, const SMCKeyData&) = default;

    /// Everything that has no field here is 0.
    ControllerRecord encoded() const;
    static SMCKeyData decoded(const ControllerRecord& record);
};

/// The first four bytes of the text as a number, the first one highest. A shorter text packs what there is;
/// an empty one gives 0.
std::uint32_t fourCC(std::string_view key);

}  // namespace velmora
