#include "menubar/MenuBarRenderer.h"

#include "menubar/MenuBarFigures.h"
#include "menubar/MenuBarGeometry.h"
#include "menubar/MenuBarPieces.h"

#include <QPainter>

#include <cmath>

namespace velmora::MenuBarRenderer {
namespace {

using MenuBarFigures::FigureLines;
using MenuBarFigures::LinesLayout;
using MenuBarGeometry::GraphFormat;
using MenuBarPieces::Piece;

MenuBarImage imageOf(const Piece& piece, const Ink& ink, double ratio) {
    MenuBarCanvas canvas(piece.width, ratio > 0 && std::isfinite(ratio) ? ratio : 1.0);
    piece.draw(canvas);
    return {canvas.finish(), ink.isTemplate};
}

QString labelOf(StatsModule module) {
    const std::string_view label = shortLabel(module);
    return QString::fromUtf8(label.data(), static_cast<qsizetype>(label.size()));
}

Piece valueText(StatsModule module, const StatsSnapshot& snapshot, const Ink& ink) {
    const FigureLines figure = MenuBarFigures::lines(module, snapshot);
    const QString top = QString::fromStdString(figure.top);
    const QString bottom = QString::fromStdString(figure.bottom);
    return figure.layout == LinesLayout::twoValues ? MenuBarPieces::twoLines(top, bottom, ink)
                                                   : MenuBarPieces::stacked(top, bottom, ink);
}

Piece historyGraph(StatsModule module, const StatsSnapshot& snapshot, const Ink& ink,
                   const GraphFormat& format) {
    switch (module) {
        case StatsModule::cpu:
            return MenuBarPieces::barGraph(snapshot.cpu.history.values(), ink, format);
        case StatsModule::memory:
            return MenuBarPieces::barGraph(snapshot.memory.pressureHistory.values(), ink, format);
        case StatsModule::disk:
            return MenuBarPieces::barGraph(MenuBarGeometry::normalize(snapshot.disk.activityHistory.values(),
                                                                      MenuBarFigures::kDiskFloor),
                                           ink, format);
        case StatsModule::network:
            return MenuBarPieces::dualGraph(snapshot.network.downHistory.values(),
                                            snapshot.network.upHistory.values(),
                                            MenuBarFigures::kNetworkFloor, ink, format);
        case StatsModule::sensors:
            return MenuBarPieces::barGraph(snapshot.sensors.history.values(), ink, format);
        case StatsModule::battery:
            return MenuBarPieces::barGraph(snapshot.battery.history.values(), ink, format);
    }
    return {};
}

/// The shape of the style, filled to the module's fraction; the graph for a module without one, and for
/// styles that are no shapes.
Piece shapeOrGraph(ModuleStyle style, StatsModule module, const StatsSnapshot& snapshot, const Ink& ink,
                   const GraphFormat& format) {
    const std::optional<double> fraction = MenuBarFigures::fraction(module, snapshot);
    if (!fraction) return historyGraph(module, snapshot, ink, format);
    switch (style) {
        case ModuleStyle::gauge:
            return MenuBarPieces::withVerticalLabel(labelOf(module), MenuBarPieces::vial(*fraction, ink),
                                                    ink);
        case ModuleStyle::gaugeOnly:
            return MenuBarPieces::vial(*fraction, ink);
        case ModuleStyle::pie:
            return MenuBarPieces::withVerticalLabel(labelOf(module), MenuBarPieces::pie(*fraction, ink), ink);
        case ModuleStyle::pieOnly:
            return MenuBarPieces::pie(*fraction, ink);
        case ModuleStyle::bar:
            return MenuBarPieces::labeledBar(labelOf(module), *fraction, ink);
        case ModuleStyle::barOnly:
            return MenuBarPieces::labeledBar({}, *fraction, ink);
        case ModuleStyle::graphValue:
        case ModuleStyle::value:
        case ModuleStyle::graph:
            break;
    }
    return historyGraph(module, snapshot, ink, format);
}

Piece widePiece(ModuleStyle style, StatsModule module, const StatsSnapshot& snapshot, const Ink& ink) {
    switch (style) {
        case ModuleStyle::graphValue:
            return MenuBarPieces::combine(historyGraph(module, snapshot, ink, MenuBarGeometry::kGraph),
                                          valueText(module, snapshot, ink));
        case ModuleStyle::value:
            return valueText(module, snapshot, ink);
        case ModuleStyle::graph:
        case ModuleStyle::gauge:
        case ModuleStyle::gaugeOnly:
        case ModuleStyle::pie:
        case ModuleStyle::pieOnly:
        case ModuleStyle::bar:
        case ModuleStyle::barOnly:
            break;
    }
    return shapeOrGraph(style, module, snapshot, ink, MenuBarGeometry::kGraph);
}

Piece squareValue(StatsModule module, const StatsSnapshot& snapshot, const Ink& ink) {
    const FigureLines figure = MenuBarFigures::compactLines(module, snapshot);
    const QString top = QString::fromStdString(figure.top);
    const QString bottom = QString::fromStdString(figure.bottom);
    return figure.layout == LinesLayout::twoValues ? MenuBarPieces::squareTwoLines(top, bottom, ink)
                                                   : MenuBarPieces::squareStacked(top, bottom, ink);
}

/// The style without its label, for shapes that leave no room for one.
ModuleStyle withoutLabel(ModuleStyle style) {
    switch (style) {
        case ModuleStyle::gauge:
            return ModuleStyle::gaugeOnly;
        case ModuleStyle::pie:
            return ModuleStyle::pieOnly;
        case ModuleStyle::bar:
            return ModuleStyle::barOnly;
        case ModuleStyle::graphValue:
        case ModuleStyle::value:
        case ModuleStyle::graph:
        case ModuleStyle::gaugeOnly:
        case ModuleStyle::pieOnly:
        case ModuleStyle::barOnly:
            break;
    }
    return style;
}

Piece squarePiece(ModuleStyle style, StatsModule module, const StatsSnapshot& snapshot, const Ink& ink) {
    if (style == ModuleStyle::value || style == ModuleStyle::graphValue) {
        return squareValue(module, snapshot, ink);
    }
    Piece piece = shapeOrGraph(style, module, snapshot, ink, MenuBarGeometry::kSquareGraph);
    if (piece.width > MenuBarGeometry::kHeight) {
        piece = shapeOrGraph(withoutLabel(style), module, snapshot, ink, MenuBarGeometry::kSquareGraph);
    }
    return MenuBarPieces::squareCentred(std::move(piece));
}

}  // namespace

Ink Ink::automatic() {
    return {Qt::black, Qt::black, true};
}

Ink Ink::of(std::optional<RGBColor> color, bool dark) {
    if (!color) return automatic();
    return {QColor(color->red, color->green, color->blue), dark ? Qt::white : Qt::black, false};
}

MenuBarImage render(ModuleStyle style, StatsModule module, const StatsSnapshot& snapshot, const Ink& ink,
                    double ratio) {
    return imageOf(widePiece(style, module, snapshot, ink), ink, ratio);
}

MenuBarImage squareImage(ModuleStyle style, StatsModule module, const StatsSnapshot& snapshot, const Ink& ink,
                         double ratio) {
    return imageOf(squarePiece(style, module, snapshot, ink), ink, ratio);
}

QString valueLine(StatsModule module, const StatsSnapshot& snapshot) {
    return QString::fromStdString(MenuBarFigures::oneLine(module, snapshot));
}

QImage tinted(const MenuBarImage& image, bool dark) {
    if (!image.isTemplate || !dark || image.image.isNull()) return image.image;
    QImage white = image.image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&white);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRectF(QPointF(0, 0), white.deviceIndependentSize()), Qt::white);
    painter.end();
    return white;
}

}  // namespace velmora::MenuBarRenderer
