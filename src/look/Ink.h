#pragma once

#include "look/Scheme.h"

#include <QColor>

/// The colours of texts and lines: white on a dark ground and black on a light one, weaker from rank to rank.
namespace velmora::Ink {

QColor primary(Scheme scheme);
QColor secondary(Scheme scheme);
QColor tertiary(Scheme scheme);
QColor quaternary(Scheme scheme);
/// Plain white or black at the given opacity: fills, borders and dividers.
QColor primary(Scheme scheme, double opacity);

/// The ground of windows.
QColor windowBackground(Scheme scheme);

}  // namespace velmora::Ink
