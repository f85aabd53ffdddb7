#pragma once

#include "menubar/MenuBarRenderer.h"

#include <map>
#include <string>

/// Pictures of a module's item in every style, keyed by the style's raw value, for a list of the styles.
namespace velmora::StyleSamples {

/// Brings pictures to one size, so that the texts beside them stand in one column: each lies at the left edge
/// and in the middle of the height of a picture as wide as the widest and as high as the highest. Nothing if
/// no picture has a size. They have one pixel ratio.
std::map<std::string, MenuBarImage> uniformSize(const std::map<std::string, MenuBarImage>& samples);

/// The module's item in each of the nine styles, brought to one size.
std::map<std::string, MenuBarImage> ofModule(StatsModule module, const StatsSnapshot& snapshot,
                                             const MenuBarRenderer::Ink& ink, double ratio);

}  // namespace velmora::StyleSamples
