#include "panels/kit/PanelWidget.h"

#include "base/FormatText.h"
#include "panels/kit/CardWidget.h"
#include "panels/kit/ChipPlacement.h"
#include "panels/kit/FooterButton.h"
#include "panels/kit/FooterIconRowWidget.h"
#include "panels/kit/GraphWidget.h"
#include "panels/kit/HoverChip.h"
#include "panels/kit/KitFixture.h"
#include "panels/kit/MenuBackdrop.h"
#include "panels/kit/MetricRowWidget.h"
#include "panels/kit/ProcessIcons.h"
#include "panels/kit/Series.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora {
namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

Graph graphOf(int count, const std::string& label) {
    Graph graph;
    graph.graph = StackedHistoryGraph{repeated(0.5, count), repeated(0.1, count), 32};
    graph.hover =
        GraphHover{2,
                   [label](int slot) {
                       return std::vector<HoverChipRow>{{Series::primary, label, formatText("%d", {slot})}};
                   },
                   "%ds ago", "Now"};
    graph.name = label;
    return graph;
}

MenuPanel samplePanel(const std::string& usage = "42%") {
    MenuPanel panel;
    panel.name = "CPU";
    panel.cards.push_back(
        {3,
         7,
         {CardHeader{"CPU", usage, ""}, graphOf(60, "first"), MetricRow{std::nullopt, "User", usage, true}}});
    panel.cards.push_back(
        {3,
         7,
         {CardHeader{"More", "", ""}, graphOf(60, "second"), MetricRow{std::nullopt, "System", "4%", true}}});
    panel.footer.shortcuts = {{"monitor", "doc.text", "Monitor", false, {}},
                              {"velmora.settings", "doc.text", "Settings", true, {}}};
    return panel;
}

class PanelWidgetTest : public testing::Test {
protected:
    GraphWidget& graph(std::size_t card) { return dynamic_cast<GraphWidget&>(view(card, 1)); }
    ViewWidget& view(std::size_t card, std::size_t index) { return *panel.cards()[card]->views()[index]; }
    static void runDeferredDeletes() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
    void showPanel() {
        panel.setPanel(samplePanel());
        panel.show();
        QApplication::processEvents();
    }

    FakeProcessIconSource source;
    ProcessIcons icons{source};
    PanelWidget panel{Scheme::dark, icons};
};

TEST_F(PanelWidgetTest, IsThreeHundredWideAndAsHighAsItsContent) {
    panel.setPanel(samplePanel());
    EXPECT_EQ(panel.sizeHint().width(), 300);
    EXPECT_EQ(panel.size(), panel.sizeHint());
    EXPECT_EQ(panel.footer().geometry().bottom() + 1 + 4, panel.height());
}

TEST_F(PanelWidgetTest, CardsStandSixApartBetweenTheirPaddings) {
    panel.setPanel(samplePanel());
    const QRect first = panel.cards()[0]->geometry();
    const QRect second = panel.cards()[1]->geometry();
    EXPECT_EQ(first.topLeft(), QPoint(8, 4));
    EXPECT_EQ(first.width(), 284);
    EXPECT_EQ(second.top(), first.bottom() + 1 + 6);
    EXPECT_EQ(panel.footer().y(), second.bottom() + 1 + 6);
}

TEST_F(PanelWidgetTest, ViewsOfACardStandItsSpacingApart) {
    panel.setPanel(samplePanel());
    EXPECT_EQ(view(0, 0).pos(), QPoint(8, 7));
    EXPECT_EQ(view(0, 0).width(), 268);
    EXPECT_EQ(view(0, 1).y(), view(0, 0).geometry().bottom() + 1 + 3);
    EXPECT_EQ(panel.cards()[0]->height(), view(0, 2).geometry().bottom() + 1 + 7);
}

TEST_F(PanelWidgetTest, ViewThatDrawsNothingTakesNoPlace) {
    MenuPanel shown;
    shown.cards.push_back({3, 7, {CardHeader{}, MetricRow{std::nullopt, "a", "b", false}}});
    panel.setPanel(shown);
    EXPECT_EQ(view(0, 1).y(), 7);
}

TEST_F(PanelWidgetTest, CardHasItsRoundedGround) {
    for (const Scheme scheme : {Scheme::dark, Scheme::light}) {
        panel.setScheme(scheme);
        panel.setPanel(samplePanel());
        const QColor ground = pictureOf(*panel.cards()[0]).pixelColor(3, 40);
        EXPECT_EQ(ground.red(), scheme == Scheme::dark ? 255 : 0);
        EXPECT_NEAR(ground.alphaF(), scheme == Scheme::dark ? 0.075 : 0.055, 0.003);
        EXPECT_EQ(pictureOf(*panel.cards()[0]).pixelColor(0, 0).alpha(), 0);
    }
}

TEST_F(PanelWidgetTest, BackdropIsDarkGreyOrWhite) {
    EXPECT_EQ(MenuBackdrop::surface(Scheme::dark), QColor(42, 42, 45));
    EXPECT_EQ(MenuBackdrop::surface(Scheme::light), QColor(255, 255, 255));
}

TEST_F(PanelWidgetTest, EmptyPanelIsItsPadding) {
    panel.setPanel({});
    EXPECT_EQ(panel.sizeHint(), QSize(300, 8));
}

TEST_F(PanelWidgetTest, ViewsOfTheSameKindAtTheSamePlaceAreKept) {
    panel.setPanel(samplePanel("1%"));
    const std::vector<CardWidget*> cards = panel.cards();
    const std::vector<ViewWidget*> views = cards[0]->views();
    panel.setPanel(samplePanel("99%"));
    EXPECT_EQ(panel.cards(), cards);
    EXPECT_EQ(panel.cards()[0]->views(), views);
}

TEST_F(PanelWidgetTest, ViewOfAnotherKindReplacesTheOld) {
    showPanel();
    ViewWidget* const header = &view(0, 0);
    MenuPanel next = samplePanel();
    next.cards[0].content[2] = TextLine{"Changed", 11, TextLine::Rank::primary};
    panel.setPanel(next);
    runDeferredDeletes();
    EXPECT_EQ(&view(0, 0), header);
    EXPECT_EQ(dynamic_cast<MetricRowWidget*>(&view(0, 2)), nullptr);
    EXPECT_TRUE(view(0, 2).isVisible());
}

TEST_F(PanelWidgetTest, CardsAndViewsComeAndGo) {
    showPanel();
    const int full = panel.height();
    MenuPanel fewer = samplePanel();
    fewer.cards.pop_back();
    fewer.cards[0].content.pop_back();
    panel.setPanel(fewer);
    runDeferredDeletes();
    EXPECT_EQ(panel.cards().size(), 1U);
    EXPECT_EQ(panel.cards()[0]->views().size(), 2U);
    EXPECT_LT(panel.height(), full);
    panel.setPanel(samplePanel());
    EXPECT_EQ(panel.height(), full);
    EXPECT_TRUE(panel.cards()[1]->isVisible());
}

TEST_F(PanelWidgetTest, EqualPanelPaintsNothingAgain) {
    showPanel();
    PaintCounter ofPanel(panel);
    PaintCounter ofRow(view(0, 2));
    panel.setPanel(samplePanel());
    QApplication::processEvents();
    EXPECT_EQ(ofPanel.count, 0);
    EXPECT_EQ(ofRow.count, 0);
}

TEST_F(PanelWidgetTest, NewFigurePaintsItsOwnRowAlone) {
    showPanel();
    PaintCounter ofRow(view(0, 2));
    PaintCounter ofOther(view(1, 2));
    panel.setPanel(samplePanel("43%"));
    QApplication::processEvents();
    EXPECT_EQ(ofRow.count, 1);
    EXPECT_EQ(ofOther.count, 0);
}

TEST_F(PanelWidgetTest, ChipShowsWhileASlotIsHovered) {
    showPanel();
    EXPECT_FALSE(panel.chip().isVisible());
    movePointer(graph(0), {100, 10});
    EXPECT_TRUE(panel.chip().isVisible());
    leave(graph(0));
    EXPECT_FALSE(panel.chip().isVisible());
}

TEST_F(PanelWidgetTest, ChipTellsTitleAndRowsOfTheSlot) {
    showPanel();
    movePointer(graph(0), {267, 10});
    EXPECT_EQ(panel.chip().spoken().name, QStringLiteral("Now"));
    EXPECT_EQ(panel.chip().spoken().value, QStringLiteral("first 59"));
    movePointer(graph(0), {267 - 268 / 60.0, 10});
    EXPECT_EQ(panel.chip().spoken().name, QStringLiteral("2s ago"));
}

TEST_F(PanelWidgetTest, ChipStandsWhereItBelongs) {
    showPanel();
    movePointer(graph(0), {60, 10});
    GraphHoverInfo info = *graph(0).hoverInfo();
    const QRectF rect = info.anchor.translated(graph(0).mapTo(&panel, QPoint(0, 0)));
    const QPointF middle = chipPosition(info, rect, panel.size(), panel.chip().measured());
    EXPECT_NEAR(panel.chip().x() + panel.chip().width() / 2.0, middle.x(), 1);
    EXPECT_NEAR(panel.chip().y() + panel.chip().height() / 2.0, middle.y(), 1);
}

TEST_F(PanelWidgetTest, ChipLiesOverEverythingElse) {
    showPanel();
    movePointer(graph(0), {60, 10});
    EXPECT_EQ(panel.children().back(), &panel.chip());
}

TEST_F(PanelWidgetTest, OfTwoGraphsTheLastReportIsShown) {
    showPanel();
    movePointer(graph(1), {60, 10});
    movePointer(graph(0), {100, 10});
    EXPECT_EQ(panel.chip().spoken().value, QStringLiteral("second 13"));
    leave(graph(1));
    EXPECT_EQ(panel.chip().spoken().value, QStringLiteral("first 22"));
}

TEST_F(PanelWidgetTest, SlotWithoutRowsShowsNoChip) {
    MenuPanel silent = samplePanel();
    std::get<Graph>(silent.cards[0].content[1]).hover->rows = [](int) { return std::vector<HoverChipRow>(); };
    panel.setPanel(silent);
    panel.show();
    movePointer(graph(0), {60, 10});
    EXPECT_EQ(graph(0).hoveredSlot(), 13);
    EXPECT_FALSE(panel.chip().isVisible());
}

TEST_F(PanelWidgetTest, HoveredSlotAndChipSurviveAnUpdate) {
    showPanel();
    movePointer(graph(0), {60, 10});
    MenuPanel next = samplePanel("43%");
    std::get<Graph>(next.cards[0].content[1]) = graphOf(59, "later");
    panel.setPanel(next);
    EXPECT_EQ(graph(0).hoveredSlot(), 13);
    EXPECT_TRUE(panel.chip().isVisible());
    EXPECT_EQ(panel.chip().spoken().value, QStringLiteral("later 13"));
}

TEST_F(PanelWidgetTest, ChipGoesWithItsGraph) {
    showPanel();
    movePointer(graph(1), {60, 10});
    MenuPanel fewer = samplePanel();
    fewer.cards.pop_back();
    panel.setPanel(fewer);
    EXPECT_FALSE(panel.chip().isVisible());
}

TEST_F(PanelWidgetTest, HoveredPanelCanBeDestroyed) {
    auto other = std::make_unique<PanelWidget>(Scheme::dark, icons);
    other->setPanel(samplePanel());
    other->show();
    movePointer(*other->cards()[0]->views()[1], {60, 10});
    other.reset();
}

TEST_F(PanelWidgetTest, KeyboardFocusSurvivesAnUpdate) {
    showPanel();
    QApplication::setActiveWindow(&panel);
    FooterButton* const settings = panel.footer().buttons()[1];
    settings->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(settings->hasFocus());
    panel.setPanel(samplePanel("43%"));
    EXPECT_TRUE(settings->hasFocus());
}

TEST_F(PanelWidgetTest, SchemeReachesEveryPart) {
    panel.setPanel(samplePanel());
    const QImage dark = pictureOf(panel);
    panel.setScheme(Scheme::light);
    const QImage light = pictureOf(panel);
    PanelWidget fresh(Scheme::light, icons);
    fresh.setPanel(samplePanel());
    EXPECT_NE(light, dark);
    EXPECT_EQ(light, pictureOf(fresh));
}

TEST_F(PanelWidgetTest, RecordsWithNothingInThemAreDrawn) {
    MenuPanel nothing;
    nothing.cards.push_back({0, 0, {}});
    nothing.cards.push_back(
        {kNoNumber,
         -5,
         {CardHeader{}, MetricRow{}, RingRow{}, RingRow{{RingStat{}}}, CoreGrid{}, UsageBar{}, BarRow{},
          TextLine{}, Graph{}, BigRateHeader{}, PeakRow{}, ProcessCard{}, IOProcessCard{}, EmptyState{}}});
    nothing.footer.shortcuts.emplace_back();
    panel.setPanel(nothing);
    pictureOf(panel);
    panel.setPanel(samplePanel());
    panel.setPanel(nothing);
    runDeferredDeletes();
    pictureOf(panel);
    EXPECT_EQ(panel.width(), 300);
}

TEST_F(PanelWidgetTest, ViewsNeverOverlap) {
    MenuPanel tall = samplePanel();
    CoreGrid grid;
    grid.rings.assign(256, {kNoNumber, Series::primary});
    tall.cards[1].content.insert(tall.cards[1].content.begin() + 1, grid);
    panel.setPanel(tall);
    for (const CardWidget* const card : panel.cards()) {
        int bottom = 0;
        for (const ViewWidget* const each : card->views()) {
            EXPECT_GE(each->y(), bottom);
            bottom = each->geometry().bottom() + 1;
        }
        EXPECT_LE(bottom, card->height());
    }
}

}  // namespace
}  // namespace velmora
