#pragma once

#include <cstdint>

namespace velmora {

/// What a window at the top edge reserves, in the device pixels of the whole desktop.
struct Strut {
    std::uint32_t top = 0;     ///< From the upper edge of the desktop.
    std::uint32_t startX = 0;  ///< First column.
    std::uint32_t endX = 0;    ///< Last column.
    friend bool operator==(const Strut&, const Strut&) = default;
};

}  // namespace velmora
