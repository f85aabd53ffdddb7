#pragma once

#include "look/Ink.h"

#include <QColor>

namespace velmora {

/// The palette of graphs.
namespace Series {

inline const QColor primary = QColor(10, 132, 255);
inline const QColor secondary = QColor(88, 86, 214);
inline const QColor tertiary = QColor(48, 176, 199);
inline const QColor gray = QColor(142, 142, 147);
inline const QColor orange = QColor(255, 149, 0);
inline const QColor red = QColor(255, 59, 48);

}  // namespace Series

namespace Tokens {

/// The unfilled part of rings and bars.
inline QColor track(Scheme scheme) {
    return Ink::primary(scheme, 0.13);
}
inline QColor tint(Scheme scheme) {
    return Ink::primary(scheme, 0.05);
}
/// The lines that help to read a graph: its centre, and the slot under the pointer.
inline QColor guide(Scheme scheme) {
    QColor color = Ink::secondary(scheme);
    color.setAlphaF(color.alphaF() * 0.5F);
    return color;
}

}  // namespace Tokens
}  // namespace velmora
