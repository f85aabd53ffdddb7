#pragma once

#include "panels/kit/Views.h"

#include <QRectF>

#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// What a graph reports of the slot under the pointer, for the chip that tells it.
struct GraphHoverInfo {
    QRectF anchor;                       ///< The graph, in the coordinates of who reports.
    std::optional<double> lineFraction;  ///< Where the hover line stands, as a share of the graph's width.
    std::string title;
    std::vector<HoverChipRow> rows;
    friend bool operator==(const GraphHoverInfo&, const GraphHoverInfo&) = default;
};

/// How the reports of a panel's graphs become the one that is shown.
namespace GraphHoverKey {

/// The last report that is not empty wins.
inline void reduce(std::optional<GraphHoverInfo>& value, std::optional<GraphHoverInfo> next) {
    if (next) value = std::move(next);
}

}  // namespace GraphHoverKey

/// How long ago the slot was, in the texts of `hover`; the last slot is now.
std::string slotTitle(const GraphHover& hover, int slot);

/// The report of a graph that fills `anchor`; nothing where the slot has no rows.
std::optional<GraphHoverInfo> hoverInfo(const GraphHover& hover, int slot, const QRectF& anchor);

}  // namespace velmora
