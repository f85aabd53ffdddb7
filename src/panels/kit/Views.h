#pragma once

#include "model/StatsModule.h"
#include "samplers/TopProcess.h"

#include <QColor>

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

// What a panel shows, as plain values. A panel is made anew from the figures by a pure function;
// `PanelWidget` lays the value out and paints it. Sizes are in points, which are logical pixels; texts are
// UTF-8 in the present language; a fraction may be any number and is held within its range where it is drawn.

namespace velmora {

/// A title with a figure at the right edge and a note below. Empty texts draw nothing.
struct CardHeader {
    std::string title;
    std::string value;
    std::string note;
    friend bool operator==(const CardHeader&, const CardHeader&) = default;
};

/// A label and a figure at the right edge, led by a dot if tinted.
struct MetricRow {
    std::optional<QColor> tint;
    std::string label;
    std::string value;
    bool mono = false;  ///< Digits of equal width.
    friend bool operator==(const MetricRow&, const MetricRow&) = default;
};

/// An arc around a figure, with a caption below.
struct RingStat {
    double fraction = 0;
    std::string text;
    std::string caption;
    QColor tint;
    double size = 46;
    double lineWidth = 5;
    double textSize = 11;
    friend bool operator==(const RingStat&, const RingStat&) = default;
};
/// Rings side by side, in the middle of the card.
struct RingRow {
    std::vector<RingStat> rings;
    double spacing = 26;
    friend bool operator==(const RingRow&, const RingRow&) = default;
};

/// The small ring of one core.
struct CoreRing {
    double fraction = 0;
    QColor tint;
    friend bool operator==(const CoreRing&, const CoreRing&) = default;
};
/// As many rings in a row as fit.
struct CoreGrid {
    std::vector<CoreRing> rings;
    double spacing = 4;
    std::string name;  ///< For screen readers, as is the value.
    std::string value;
    friend bool operator==(const CoreGrid&, const CoreGrid&) = default;
};

struct UsageBar {
    double fraction = 0;
    QColor tint;
    double height = 4;
    friend bool operator==(const UsageBar&, const UsageBar&) = default;
};
/// A label, a bar and a figure in one row, 16 high with 8 between them.
struct BarRow {
    std::string label;
    UsageBar bar;
    std::string value;
    double valueMinWidth = 0;
    /// A text as wide as the value may get, so that the bar keeps its length whatever the figure is.
    std::string valueSample = {};
    friend bool operator==(const BarRow&, const BarRow&) = default;
};

/// One line of text, cut at its end where it is too long.
struct TextLine {
    enum class Rank { primary, secondary };
    std::string text;
    double size = 11;
    Rank rank = Rank::primary;
    friend bool operator==(const TextLine&, const TextLine&) = default;
};

struct HoverChipRow {
    std::optional<QColor> tint;
    std::string label;
    std::string value;
    friend bool operator==(const HoverChipRow&, const HoverChipRow&) = default;
};
/// What a graph tells of the slot under the pointer. No rows: only the line is drawn, and no chip.
struct GraphHover {
    double interval = 2;  ///< Seconds per slot.
    std::function<std::vector<HoverChipRow>(int slot)> rows;
    std::string ago;  ///< A format with one number of seconds: "%d s ago".
    std::string now;
};

/// Fractions, `system` on top of `user`.
struct StackedHistoryGraph {
    std::vector<double> user;
    std::vector<double> system;
    double height = 32;
    friend bool operator==(const StackedHistoryGraph&, const StackedHistoryGraph&) = default;
};
/// Two rates that grow away from a centre line, on one scale.
struct MirroredHistoryGraph {
    std::vector<double> top;
    std::vector<double> bottom;
    QColor topTint;
    QColor bottomTint;
    double height = 30;
    friend bool operator==(const MirroredHistoryGraph&, const MirroredHistoryGraph&) = default;
};
/// Lines in °C between two bounds, which stand beside it.
struct TempHistoryGraph {
    struct Line {
        std::vector<double> values;
        QColor tint;
        friend bool operator==(const Line&, const Line&) = default;
    };
    std::vector<Line> series;
    double low = 0;
    double high = 0;
    double height = 38;
    std::string lowLabel;
    std::string highLabel;
    friend bool operator==(const TempHistoryGraph&, const TempHistoryGraph&) = default;
};
/// Fractions; a bar's colour tells whether the machine was plugged in.
struct BatteryHistoryGraph {
    std::vector<double> levels;
    std::vector<bool> plugged;
    double height = 26;
    friend bool operator==(const BatteryHistoryGraph&, const BatteryHistoryGraph&) = default;
};
struct Graph {
    std::variant<StackedHistoryGraph, MirroredHistoryGraph, TempHistoryGraph, BatteryHistoryGraph> graph;
    std::optional<GraphHover> hover;
    std::string name;  ///< For screen readers, as is the value: the newest figures.
    std::string value;
};

/// Two rates side by side, large.
struct BigRateHeader {
    std::string leadingValue;
    std::string leadingLabel;
    QColor leadingTint;
    std::string trailingValue;
    std::string trailingLabel;
    QColor trailingTint;
    friend bool operator==(const BigRateHeader&, const BigRateHeader&) = default;
};

/// Small pairs of label and figure in one row.
struct PeakRow {
    struct Item {
        std::string label;
        std::string value;
        friend bool operator==(const Item&, const Item&) = default;
    };
    std::vector<Item> items;
    friend bool operator==(const PeakRow&, const PeakRow&) = default;
};

struct ProcessRow {
    TopProcess process;
    std::string valueText;
    friend bool operator==(const ProcessRow&, const ProcessRow&) = default;
};
/// A header and `rowCount` rows; places without a process hold a skeleton, so the card keeps its height.
struct ProcessCard {
    std::string title;
    std::string note;
    std::vector<TopProcess> processes;
    std::function<std::string(double)> format;
    int rowCount = 5;
};
/// The same with two figures per process.
struct IOProcessCard {
    struct Column {
        std::string label;
        std::function<double(const TopIOProcess&)> value;
    };
    std::string title;
    std::array<Column, 2> columns;
    std::vector<TopIOProcess> processes;
    int rowCount = 5;
};

/// A symbol above a text, in the middle: nothing to show.
struct EmptyState {
    std::string symbol;
    std::string text;
    friend bool operator==(const EmptyState&, const EmptyState&) = default;
};

using PanelView = std::variant<CardHeader, MetricRow, RingRow, CoreGrid, UsageBar, BarRow, TextLine, Graph,
                               BigRateHeader, PeakRow, ProcessCard, IOProcessCard, EmptyState>;

/// A column of views on a rounded ground.
struct MenuCard {
    double spacing = 3;
    double verticalPadding = 7;
    std::vector<PanelView> content;
};

/// A small round button below the cards.
struct FooterShortcut {
    std::string id;  ///< The target's path or URL, which tells the buttons of a row apart.
    std::string symbol;
    std::string help;     ///< Tool tip and accessible name.
    bool accent = false;  ///< The program's own button: its icon stands in for the symbol.
    std::function<void()> action;
};
struct FooterIconRow {
    std::vector<FooterShortcut> shortcuts;
};

struct MenuPanel {
    std::string name;  ///< The module's, for screen readers.
    std::vector<MenuCard> cards;
    FooterIconRow footer;
};

}  // namespace velmora
