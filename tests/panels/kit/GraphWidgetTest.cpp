#include "panels/kit/GraphWidget.h"

#include "panels/kit/GraphPainter.h"
#include "panels/kit/KitFixture.h"
#include "panels/kit/Series.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora {
namespace {

constexpr int kWidth = 240;
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

Graph stacked(int count) {
    Graph graph;
    graph.graph = StackedHistoryGraph{repeated(0.5, count), repeated(0.25, count), 32};
    graph.hover =
        GraphHover{2,
                   [](int slot) {
                       return std::vector<HoverChipRow>{{std::nullopt, "slot", slot < 30 ? "early" : "late"}};
                   },
                   "%ds ago", "Now"};
    return graph;
}

class GraphWidgetTest : public testing::Test {
protected:
    GraphWidget& make(const Graph& graph) {
        m_widget.emplace(
            graph, [this] { ++hoverChanges; }, Scheme::dark, nullptr);
        m_widget->setPlace({0, 0, kWidth, m_widget->heightForWidth(kWidth)});
        return *m_widget;
    }
    int hoverChanges = 0;

private:
    std::optional<GraphWidget> m_widget;
};

TEST_F(GraphWidgetTest, HeightIsTheGraphs) {
    EXPECT_EQ(make(stacked(60)).height(), 32);
}

TEST_F(GraphWidgetTest, BarsStandAtTheRightEdge) {
    const QImage picture = pictureOf(make(stacked(5)));
    EXPECT_EQ(picture.pixelColor(237, 28), Series::primary);
    EXPECT_EQ(picture.pixelColor(237, 12), Series::secondary);
    EXPECT_EQ(picture.pixelColor(237, 4).alpha(), 0);
    EXPECT_TRUE(isEmpty(picture.copy(0, 0, 220, 32)));
}

TEST_F(GraphWidgetTest, BarsHaveAGapOfOnePixelAtEveryPlace) {
    GraphWidget& graph = make(stacked(60));
    graph.resize(268, 32);
    const QImage picture = pictureOf(graph);
    int gaps = 0;
    for (int x = 0; x + 1 < picture.width(); ++x) {
        const bool isGap = picture.pixelColor(x, 30).alpha() == 0;
        EXPECT_TRUE(isGap || picture.pixelColor(x, 30) == Series::primary) << x;
        EXPECT_FALSE(isGap && picture.pixelColor(x + 1, 30).alpha() == 0) << x;
        gaps += isGap ? 1 : 0;
    }
    EXPECT_GE(gaps, 59);
}

TEST_F(GraphWidgetTest, EmptySeriesShowNothing) {
    EXPECT_TRUE(isEmpty(pictureOf(make(stacked(0)))));
}

TEST_F(GraphWidgetTest, PointerHoversTheSlotThatItIsIn) {
    GraphWidget& graph = make(stacked(60));
    EXPECT_EQ(graph.hoveredSlot(), std::nullopt);
    movePointer(graph, {41, 10});
    EXPECT_EQ(graph.hoveredSlot(), 10);
    movePointer(graph, {239, 10});
    EXPECT_EQ(graph.hoveredSlot(), 59);
    EXPECT_EQ(hoverChanges, 2);
}

TEST_F(GraphWidgetTest, MovingWithinASlotChangesNothing) {
    GraphWidget& graph = make(stacked(60));
    movePointer(graph, {41, 10});
    movePointer(graph, {43, 20});
    EXPECT_EQ(hoverChanges, 1);
}

TEST_F(GraphWidgetTest, LeavingEndsTheHover) {
    GraphWidget& graph = make(stacked(60));
    movePointer(graph, {41, 10});
    leave(graph);
    EXPECT_EQ(graph.hoveredSlot(), std::nullopt);
    EXPECT_FALSE(graph.hoverInfo());
}

TEST_F(GraphWidgetTest, HidingEndsTheHover) {
    GraphWidget& graph = make(stacked(60));
    graph.show();
    movePointer(graph, {41, 10});
    graph.hide();
    EXPECT_EQ(graph.hoveredSlot(), std::nullopt);
}

TEST_F(GraphWidgetTest, HoverLineStandsInTheMiddleOfItsSlotOverTheWholeHeight) {
    GraphWidget& graph = make(stacked(0));
    movePointer(graph, {41, 10});
    const QImage picture = pictureOf(graph);
    // The line of slot 10 is 1 wide around 42.
    for (int y = 0; y < picture.height(); ++y) {
        EXPECT_EQ(picture.pixelColor(42, y).alpha(), Tokens::guide(Scheme::dark).alpha()) << y;
    }
    EXPECT_TRUE(isEmpty(picture.copy(0, 0, 42, 32)));
    EXPECT_TRUE(isEmpty(picture.copy(43, 0, kWidth - 43, 32)));
}

TEST_F(GraphWidgetTest, SlotWithoutRowsHasItsLineButNoReport) {
    Graph silent = stacked(0);
    silent.hover->rows = [](int) { return std::vector<HoverChipRow>(); };
    GraphWidget& graph = make(silent);
    movePointer(graph, {41, 10});
    EXPECT_FALSE(graph.hoverInfo());
    EXPECT_FALSE(isEmpty(pictureOf(graph)));
}

TEST_F(GraphWidgetTest, GraphWithoutHoverIgnoresThePointer) {
    Graph still = stacked(0);
    still.hover.reset();
    GraphWidget& graph = make(still);
    movePointer(graph, {41, 10});
    EXPECT_EQ(graph.hoveredSlot(), std::nullopt);
    EXPECT_TRUE(isEmpty(pictureOf(graph)));
}

TEST_F(GraphWidgetTest, HoveredSlotStaysWhileValuesArrive) {
    GraphWidget& graph = make(stacked(30));
    movePointer(graph, {41, 10});
    Graph next = stacked(31);
    next.hover->rows = [](int) { return std::vector<HoverChipRow>{{std::nullopt, "slot", "new"}}; };
    graph.setView(PanelView(next));
    EXPECT_EQ(graph.hoveredSlot(), 10);
    EXPECT_EQ(graph.hoverInfo()->rows[0].value, "new");
}

TEST_F(GraphWidgetTest, EqualValuesAreNotPaintedAgain) {
    GraphWidget& graph = make(stacked(30));
    // Away from the corner, where the pointer of a machine without one is.
    graph.move(400, 400);
    graph.show();
    QApplication::processEvents();
    PaintCounter paints(graph);
    graph.setView(PanelView(stacked(30)));
    QApplication::processEvents();
    EXPECT_EQ(paints.count, 0);
    graph.setView(PanelView(stacked(31)));
    QApplication::processEvents();
    EXPECT_EQ(paints.count, 1);
}

TEST_F(GraphWidgetTest, MirroredBarsGrowAwayFromADashedLine) {
    Graph graph;
    graph.graph =
        MirroredHistoryGraph{repeated(100, 2), repeated(50, 2), Series::primary, Series::secondary, 30};
    const QImage picture = pictureOf(make(graph));
    EXPECT_EQ(picture.pixelColor(237, 2), Series::primary);
    EXPECT_EQ(picture.pixelColor(237, 20), Series::secondary);
    EXPECT_EQ(picture.pixelColor(237, 26).alpha(), 0);
    int dashes = 0;
    for (int x = 0; x < 200; ++x) dashes += picture.pixelColor(x, 15).alpha() > 0 ? 1 : 0;
    EXPECT_EQ(dashes, 100);
}

TEST_F(GraphWidgetTest, MirroredZerosShowTheLineAlone) {
    Graph graph;
    graph.graph =
        MirroredHistoryGraph{repeated(0, 60), repeated(0, 60), Series::primary, Series::secondary, 30};
    const QImage picture = pictureOf(make(graph));
    EXPECT_TRUE(isEmpty(picture.copy(0, 0, kWidth, 14)));
    EXPECT_TRUE(isEmpty(picture.copy(0, 16, kWidth, 14)));
}

Graph temperatures(const std::string& low, const std::string& high) {
    Graph graph;
    TempHistoryGraph history;
    history.series = {{repeated(40, 60), Series::primary}};
    history.low = 30;
    history.high = 50;
    history.lowLabel = low;
    history.highLabel = high;
    graph.graph = history;
    return graph;
}

TEST_F(GraphWidgetTest, TemperatureRangeStandsBesideTheLines) {
    const Graph graph = temperatures("30", "50");
    const QRectF box(0, 0, kWidth, 38);
    const QRectF plot = GraphPainter::plot(graph, box);
    EXPECT_GT(plot.left(), 10);
    EXPECT_DOUBLE_EQ(plot.right(), kWidth);
    const QImage picture = pictureOf(make(graph));
    const int gapLeft = static_cast<int>(plot.left()) - 4;
    EXPECT_TRUE(isEmpty(picture.copy(gapLeft, 1, 3, 36)));
    // High at the top, low at the bottom, and nothing between.
    EXPECT_FALSE(isEmpty(picture.copy(0, 0, gapLeft, 13)));
    EXPECT_FALSE(isEmpty(picture.copy(0, 25, gapLeft, 13)));
    EXPECT_TRUE(isEmpty(picture.copy(0, 15, gapLeft, 8)));
}

TEST_F(GraphWidgetTest, TemperatureLinesStayWhateverTheRangeIsCalled) {
    const QRectF box(0, 0, kWidth, 38);
    EXPECT_EQ(GraphPainter::plot(temperatures("3", "5"), box),
              GraphPainter::plot(temperatures("100", "111"), box));
}

TEST_F(GraphWidgetTest, TemperatureGraphWithoutLabelsHasTheWholeWidth) {
    EXPECT_EQ(GraphPainter::plot(temperatures("", ""), QRectF(0, 0, kWidth, 38)).left(), 0);
}

TEST_F(GraphWidgetTest, EndlessLabelLeavesTheLinesTheirRoom) {
    const std::string label(200, '8');
    EXPECT_EQ(GraphPainter::plot(temperatures(label, label), QRectF(0, 0, kWidth, 38)).left(), kWidth / 4.0);
}

TEST_F(GraphWidgetTest, PointerOverTheRangeHoversNothing) {
    Graph graph = temperatures("30", "50");
    graph.hover = stacked(0).hover;
    GraphWidget& widget = make(graph);
    movePointer(widget, {2, 10});
    EXPECT_EQ(widget.hoveredSlot(), std::nullopt);
    movePointer(widget, {kWidth - 1, 10});
    EXPECT_EQ(widget.hoveredSlot(), 59);
}

TEST_F(GraphWidgetTest, BatteryBarsTellWhetherItWasPlugged) {
    Graph graph;
    graph.graph = BatteryHistoryGraph{repeated(1, 2), {true, false}, 26};
    const QImage picture = pictureOf(make(graph));
    EXPECT_EQ(picture.pixelColor(233, 10), Series::primary);
    EXPECT_EQ(picture.pixelColor(237, 10), Series::secondary);
}

TEST_F(GraphWidgetTest, BadFiguresAndSizesAreDrawn) {
    const std::vector<double> bad = {kNoNumber, -1, 1e308, -std::numeric_limits<double>::infinity()};
    TempHistoryGraph temperature;
    temperature.series = {{bad, QColor()}, {{}, Series::red}};
    temperature.low = kNoNumber;
    temperature.high = -5;
    temperature.height = 1e9;
    for (const Graph& graph :
         {Graph{StackedHistoryGraph{bad, {}, kNoNumber}, {}, {}, {}},
          Graph{MirroredHistoryGraph{bad, bad, {}, {}, -3}, {}, {}, {}}, Graph{temperature, {}, {}, {}},
          Graph{BatteryHistoryGraph{bad, {}, 26}, {}, {}, {}}}) {
        GraphWidget& widget = make(graph);
        pictureOf(widget);
        EXPECT_GE(widget.height(), 0);
        EXPECT_LE(widget.height(), 2000);
    }
}

}  // namespace
}  // namespace velmora
