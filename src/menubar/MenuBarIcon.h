#pragma once

#include "menubar/MenuBarRenderer.h"

/// The icon of the item that is shown while no module is enabled.
namespace velmora::MenuBarIcon {

/// Three rounded bars of which the middle one is the tallest, 16 by 16 points, a template.
MenuBarImage gauge(double ratio);

}  // namespace velmora::MenuBarIcon
