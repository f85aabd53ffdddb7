#pragma once

#include "look/Scheme.h"

#include <QColor>

/// The shared colours of the pill controls: white on dark and black on light.
namespace velmora::PillTheme {

/// The ground of a dropdown and of an unfilled button.
QColor field(Scheme scheme);
/// Their 1-point border.
QColor fieldBorder(Scheme scheme);
/// Outline, separators and selected segment of the segmented control.
QColor segOverlay(Scheme scheme);

}  // namespace velmora::PillTheme
