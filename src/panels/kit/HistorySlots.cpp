#include "panels/kit/HistorySlots.h"

#include <algorithm>
#include <cmath>

namespace velmora {

int slotAt(double x, double width) {
    const double slot = x / width * kHistorySlots;
    // A graph without a width has no place for the pointer, and the quotient may be no number.
    if (!(slot > 0)) return 0;
    return slot >= kHistorySlots ? kHistorySlots - 1 : static_cast<int>(slot);
}

double slotValue(std::span<const double> values, int slot) {
    const std::optional<std::size_t> index = slotIndex(slot, values.size());
    if (!index) return 0;
    const double value = values[*index];
    return std::isfinite(value) ? std::max(value, 0.0) : 0;
}

}  // namespace velmora
