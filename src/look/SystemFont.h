#pragma once

#include <QFont>
#include <QStringList>

/// The font of the whole interface: Inter where it is installed, else the desktop's own general font.
/// Characters that neither has come from the system's fallback fonts.
namespace velmora::SystemFont {

/// The families in the order in which they are asked for.
QStringList families();
/// False where no font at all is installed: texts are then boxes. The list of families does not tell, for it
/// names the general ones in any case.
bool isInstalled();
/// The font at a size in pixels of the picture that it is drawn into, without colour fringes.
QFont ofPixelSize(int pixels, QFont::Weight weight);

/// Draws with these families from now on, for pictures that must be the same on every machine; an empty list
/// returns to the system's.
void pin(const QStringList& families);
/// Grows with every `pin`, so that who keeps measured texts knows when they are out of date.
unsigned generation();

}  // namespace velmora::SystemFont
