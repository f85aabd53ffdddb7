#pragma once

#include <cstddef>
#include <optional>
#include <span>

// A history graph has 60 slots, the newest value in the last one. With fewer values the slots at the left are
// empty, and of more values the last 60 show.

namespace velmora {

inline constexpr int kHistorySlots = 60;

/// Where the value of a slot stands in a series of `count` values; nothing for an empty slot and for a slot
/// outside of 0...59.
constexpr std::optional<std::size_t> slotIndex(int slot, std::size_t count) {
    if (slot < 0 || slot >= kHistorySlots) return std::nullopt;
    const std::size_t fromRight = static_cast<std::size_t>(kHistorySlots - slot);
    if (fromRight > count) return std::nullopt;
    return count - fromRight;
}

/// The slot at `x` of a graph of the given width, limited to 0...59.
int slotAt(double x, double width);

/// What a slot draws: 0 where it is empty, and for a figure that is negative or no number.
double slotValue(std::span<const double> values, int slot);

}  // namespace velmora
