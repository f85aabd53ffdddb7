#pragma once

#include "model/StatsSnapshot.h"

#include <optional>
#include <string>

/// What the items say about a snapshot, before anything is drawn.
namespace velmora::MenuBarFigures {

/// Rates below this do not fill a network graph or shape, in bytes per second.
inline constexpr double kNetworkFloor = 100000.0;
/// The same for the disk's activity.
inline constexpr double kDiskFloor = 1e7;

enum class LinesLayout { labelOverValue, twoValues };

/// The two texts of a module's item: its short label above its figure, or two figures.
struct FigureLines {
    std::string top;
    std::string bottom;
    LinesLayout layout = LinesLayout::labelOverValue;
    friend bool operator==(const FigureLines&, const FigureLines&) = default;
};

FigureLines lines(StatsModule module, const StatsSnapshot& snapshot);
/// The same for bars whose cells are squares: rates without the blank after their arrow and, from 10 MB/s on,
/// without decimals.
FigureLines compactLines(StatsModule module, const StatsSnapshot& snapshot);
/// The figure alone, as one line.
std::string oneLine(StatsModule module, const StatsSnapshot& snapshot);

/// What a shape of the module fills to; nothing where the module has no such figure now.
std::optional<double> fraction(StatsModule module, const StatsSnapshot& snapshot);
/// Of the volume's capacity; 0 for an unknown capacity, and when more is free than there is.
double usedShare(const DiskVolume& volume);

}  // namespace velmora::MenuBarFigures
