#include "panels/kit/GraphHoverInfo.h"

#include "base/FormatText.h"
#include "panels/kit/GraphGeometry.h"
#include "panels/kit/HistorySlots.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace velmora {

std::string slotTitle(const GraphHover& hover, int slot) {
    constexpr double kLongest = 1e9;
    const double ago = std::round(hover.interval * (kHistorySlots - 1 - slot));
    const double held = std::isfinite(ago) ? std::clamp(ago, 0.0, kLongest) : 0;
    const auto seconds = static_cast<std::int64_t>(held);
    return seconds == 0 ? hover.now : formatText(hover.ago, {seconds});
}

std::optional<GraphHoverInfo> hoverInfo(const GraphHover& hover, int slot, const QRectF& anchor) {
    if (!hover.rows) return std::nullopt;
    std::vector<HoverChipRow> rows = hover.rows(slot);
    if (rows.empty()) return std::nullopt;
    return GraphHoverInfo{anchor, GraphGeometry::lineFraction(slot), slotTitle(hover, slot), std::move(rows)};
}

}  // namespace velmora
