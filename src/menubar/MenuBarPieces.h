#pragma once

#include "menubar/MenuBarCanvas.h"
#include "menubar/MenuBarGeometry.h"
#include "menubar/MenuBarRenderer.h"

#include <QString>

#include <functional>
#include <span>

/// The parts that items are put together from.
namespace velmora::MenuBarPieces {

using Ink = MenuBarRenderer::Ink;

/// Labels stand back behind the figures.
inline constexpr float kLabelAlpha = 0.72F;

/// As wide as it says, in points; draws itself from the canvas's origin on.
struct Piece {
    double width = 0;
    std::function<void(MenuBarCanvas&)> draw;
};

Piece barGraph(std::span<const double> values, const Ink& ink, const MenuBarGeometry::GraphFormat& format);
/// Two series on one scale, the second over the first.
Piece dualGraph(std::span<const double> primary, std::span<const double> secondary, double floor,
                const Ink& ink, const MenuBarGeometry::GraphFormat& format);

/// A small label above a figure; without a label, the figure alone and larger.
Piece stacked(const QString& label, const QString& value, const Ink& ink);
Piece twoLines(const QString& top, const QString& bottom, const Ink& ink);
Piece single(const QString& text, const Ink& ink);

Piece vial(double fraction, const Ink& ink);
Piece pie(double fraction, const Ink& ink);
/// An empty label is no label.
Piece labeledBar(const QString& label, double fraction, const Ink& ink);

Piece combine(Piece graph, Piece text);
/// The label's first three letters, reading downwards, left of the shape.
Piece withVerticalLabel(const QString& label, Piece shape, const Ink& ink);

/// A square with a label above a figure that is made small enough to fit in.
Piece squareStacked(const QString& label, const QString& value, const Ink& ink);
/// A square with two figures in one size; their first characters stand below each other at the left.
Piece squareTwoLines(const QString& top, const QString& bottom, const Ink& ink);
/// A square with the piece in its middle.
Piece squareCentred(Piece piece);

}  // namespace velmora::MenuBarPieces
