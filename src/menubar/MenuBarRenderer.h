#pragma once

#include "core/AppSettings.h"
#include "model/ModuleStyle.h"
#include "model/StatsSnapshot.h"

#include <QColor>
#include <QImage>

#include <optional>

namespace velmora {

/// A drawn item. A template image is black with alpha, to be tinted for the bar that it lies on. The image's
/// device pixel ratio is set; its size over that ratio is its size in points.
struct MenuBarImage {
    QImage image;
    bool isTemplate = false;
};

/// Pure drawing of a module's item. Nothing is cached; every image is 22 points high.
namespace MenuBarRenderer {

/// What an image is drawn in.
struct Ink {
    QColor primary;  ///< Bars, vials, pies, and the tint of outlines.
    QColor text;
    bool isTemplate = false;

    /// Black, as a template.
    static Ink automatic();
    /// The module's own colour with a text that reads on the bar; without a colour, `automatic`.
    static Ink of(std::optional<RGBColor> color, bool dark);
};

/// The module's item in the given style. `ratio` is device pixels per point.
MenuBarImage render(ModuleStyle style, StatsModule module, const StatsSnapshot& snapshot, const Ink& ink,
                    double ratio);

/// The same for bars whose cells are squares: the label above the figure, or the shape alone, 22 by 22.
MenuBarImage squareImage(ModuleStyle style, StatsModule module, const StatsSnapshot& snapshot, const Ink& ink,
                         double ratio);

/// The module's figure as one line of text, for bars that show text beside an icon.
QString valueLine(StatsModule module, const StatsSnapshot& snapshot);

/// The colour that a template takes on a bar: white on a dark one, black on a light one.
QImage tinted(const MenuBarImage& image, bool dark);

}  // namespace MenuBarRenderer
}  // namespace velmora
