#pragma once

#include "look/Scheme.h"

class QWidget;

namespace velmora {

/// Draws a window and everything in it light or dark from now on. Every widget inside gets a
/// `QEvent::PaletteChange` and repaints, and what the toolkit draws itself (tool tips, scroll bars) follows.
void setScheme(QWidget& window, Scheme scheme);

/// The scheme of the nearest widget above, the widget itself included, that was given one; popups ask the
/// widget that they belong to. Light where none was given.
Scheme schemeOf(const QWidget* widget);

}  // namespace velmora
