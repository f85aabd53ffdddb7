// What a screen reader finds in a panel.

#include "panels/kit/CardWidget.h"
#include "panels/kit/FooterButton.h"
#include "panels/kit/FooterIconRowWidget.h"
#include "panels/kit/KitFixture.h"
#include "panels/kit/PanelWidget.h"
#include "panels/kit/ProcessIcons.h"
#include "panels/kit/Series.h"
#include "panels/kit/ViewWidget.h"

#include <gtest/gtest.h>

#include <QAccessible>

namespace velmora {
namespace {

class PanelAccessibilityTest : public testing::Test {
protected:
    /// The only view of the panel's only card.
    QAccessibleInterface& shown(const PanelView& view) {
        MenuPanel value;
        value.name = "CPU";
        value.cards.push_back({3, 7, {view}});
        panel.setPanel(value);
        return of(panel.cards()[0]->views()[0]);
    }
    static QAccessibleInterface& of(QObject* object) {
        QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(object);
        if (!interface) throw std::runtime_error("no interface");
        return *interface;
    }
    static void expectSpoken(const QAccessibleInterface& interface, QAccessible::Role role, const char* name,
                             const char* value) {
        EXPECT_EQ(interface.role(), role);
        EXPECT_EQ(interface.text(QAccessible::Name), QString::fromUtf8(name));
        EXPECT_EQ(interface.text(QAccessible::Value), QString::fromUtf8(value));
        EXPECT_EQ(interface.text(QAccessible::Description), QString::fromUtf8(value));
    }

    FakeProcessIconSource source;
    ProcessIcons icons{source};
    PanelWidget panel{Scheme::dark, icons};
};

TEST_F(PanelAccessibilityTest, PanelHasItsName) {
    shown(TextLine{"text"});
    EXPECT_EQ(of(&panel).text(QAccessible::Name), QStringLiteral("CPU"));
    EXPECT_EQ(of(&panel).role(), QAccessible::Pane);
}

TEST_F(PanelAccessibilityTest, CardIsNamedByItsHeader) {
    shown(CardHeader{"Cores", "42%", ""});
    expectSpoken(of(panel.cards()[0]), QAccessible::Grouping, "Cores", "");
}

TEST_F(PanelAccessibilityTest, HeaderTellsFigureAndNote) {
    expectSpoken(shown(CardHeader{"CPU", "42%", "8 cores"}), QAccessible::Heading, "CPU", "42%, 8 cores");
}

TEST_F(PanelAccessibilityTest, RowTellsLabelAndFigure) {
    expectSpoken(shown(MetricRow{Series::primary, "User", "31%", true}), QAccessible::StaticText, "User",
                 "31%");
    expectSpoken(shown(BarRow{"GPU", {0.3, Series::primary, 4}, "30%", 32, ""}), QAccessible::Indicator,
                 "GPU", "30%");
    expectSpoken(shown(TextLine{"Root"}), QAccessible::StaticText, "Root", "");
    expectSpoken(shown(EmptyState{"doc.text", "No sensors"}), QAccessible::StaticText, "No sensors", "");
}

TEST_F(PanelAccessibilityTest, RowOfTwoFiguresTellsBoth) {
    expectSpoken(
        shown(BigRateHeader{"1 MB/s", "Upload", Series::primary, "2 MB/s", "Download", Series::secondary}),
        QAccessible::StaticText, "Upload, Download", "Upload 1 MB/s, Download 2 MB/s");
    expectSpoken(shown(PeakRow{{{"Read", "1 MB/s"}, {"Write", "2 MB/s"}}}), QAccessible::StaticText,
                 "Read, Write", "Read 1 MB/s, Write 2 MB/s");
}

TEST_F(PanelAccessibilityTest, EachRingTellsCaptionAndFigure) {
    QAccessibleInterface& row = shown(RingRow{{{0.6, "64%", "Pressure", Series::primary, 46, 5, 11},
                                               {0.2, "20%", "Usage", Series::primary, 46, 5, 11}},
                                              26});
    ASSERT_EQ(row.childCount(), 2);
    expectSpoken(*row.child(0), QAccessible::Indicator, "Pressure", "64%");
    expectSpoken(*row.child(1), QAccessible::Indicator, "Usage", "20%");
}

TEST_F(PanelAccessibilityTest, GraphAndGridTellWhatTheyWereGiven) {
    Graph graph;
    graph.name = "CPU";
    graph.value = "User 31%, System 4%";
    expectSpoken(shown(graph), QAccessible::Chart, "CPU", "User 31%, System 4%");
    CoreGrid grid;
    grid.name = "Cores";
    grid.value = "5%, 80%";
    expectSpoken(shown(grid), QAccessible::Chart, "Cores", "5%, 80%");
}

TEST_F(PanelAccessibilityTest, ProcessRowIsNamedByItsProcess) {
    ProcessCard card;
    card.title = "Processes";
    card.processes = {{1, "firefox", 12}};
    card.format = [](double) { return std::string("12.0%"); };
    QAccessibleInterface& list = shown(card);
    EXPECT_EQ(list.role(), QAccessible::List);
    EXPECT_EQ(list.text(QAccessible::Name), QStringLiteral("Processes"));
    // The header comes first.
    expectSpoken(*list.child(1), QAccessible::StaticText, "firefox", "12.0%");
    expectSpoken(*list.child(2), QAccessible::Whitespace, "", "");
}

TEST_F(PanelAccessibilityTest, FiguresOfAProcessAreNamedByTheirColumns) {
    IOProcessCard card;
    card.title = "Processes";
    card.columns = {{{"Read", [](const TopIOProcess& process) { return process.incoming; }},
                     {"Write", [](const TopIOProcess& process) { return process.outgoing; }}}};
    card.processes = {{1, "rsync", 12'000, 0}};
    expectSpoken(*shown(card).child(1), QAccessible::StaticText, "rsync", "Read 12K, Write —");
}

TEST_F(PanelAccessibilityTest, NewFigureIsToldWhenItIsAskedFor) {
    QAccessibleInterface& row = shown(MetricRow{std::nullopt, "User", "31%", true});
    shown(MetricRow{std::nullopt, "User", "32%", true});
    EXPECT_EQ(row.text(QAccessible::Value), QStringLiteral("32%"));
}

TEST_F(PanelAccessibilityTest, FooterButtonsAreNamedByTheirHelp) {
    MenuPanel value;
    value.footer.shortcuts = {{"velmora.settings", "doc.text", "Settings…", true, {}}};
    panel.setPanel(value);
    QAccessibleInterface& button = of(panel.footer().buttons()[0]);
    EXPECT_EQ(button.role(), QAccessible::Button);
    EXPECT_EQ(button.text(QAccessible::Name), QStringLiteral("Settings…"));
    EXPECT_TRUE(button.state().focusable);
}

}  // namespace
}  // namespace velmora
