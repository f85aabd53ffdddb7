#pragma once

#include "l10n/AppLanguage.h"

#include <QFont>
#include <QStringList>

/// The font of the whole interface: Inter where it is installed, else the desktop's own general font.
/// Characters that neither has come from the system's fallback fonts, but those of Chinese, Japanese and
/// Korean texts from the language's own family, since many have another shape in each.
namespace velmora::SystemFont {

/// The language of the texts that are drawn from now on.
void setLanguage(AppLanguage language);

/// The families in the order in which they are asked for.
QStringList families();
/// False where no font at all is installed: texts are then boxes. The list of families does not tell, for it
/// names the general ones in any case.
bool isInstalled();
/// The font at a size in pixels of the picture that it is drawn into, without colour fringes.
QFont ofPixelSize(int pixels, QFont::Weight weight);

/// What a line needs above and below its letters' feet.
struct LineExtent {
    double ascent = 0;
    double descent = 0;

    double height() const { return ascent + descent; }
};
/// Enough for the letters of the language and for Latin ones, so that lines stand alike whichever they have.
LineExtent lineExtent(const QFont& font);

/// Draws with these families from now on, for pictures that must be the same on every machine; an empty list
/// returns to the system's.
void pin(const QStringList& families);
/// Grows with every change of the families, so that who keeps fonts or measured texts knows when they are out
/// of date.
unsigned generation();

}  // namespace velmora::SystemFont
