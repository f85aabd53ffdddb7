#include "base/FormatText.h"
#include "panels/kit/IOHeaderWidget.h"
#include "panels/kit/IOProcessCardWidget.h"
#include "panels/kit/KitFixture.h"
#include "panels/kit/PanelText.h"
#include "panels/kit/ProcessCardWidget.h"
#include "panels/kit/ProcessIcons.h"
#include "panels/kit/ProcessRowWidget.h"
#include "panels/kit/Series.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora {
namespace {

constexpr int kWidth = 268;

std::vector<ProcessRowWidget*> rowsOf(const QWidget& card) {
    std::vector<ProcessRowWidget*> rows;
    for (QObject* const child : card.children()) {
        if (auto* const row = dynamic_cast<ProcessRowWidget*>(child); row && !row->isHidden())
            rows.push_back(row);
    }
    return rows;
}

ProcessCard cardOf(std::vector<TopProcess> processes) {
    ProcessCard card;
    card.title = "Processes";
    card.note = "1 core = 100%";
    card.processes = std::move(processes);
    card.format = [](double value) { return formatText("%.1f%%", {value}); };
    return card;
}

IOProcessCard ioCardOf(std::vector<TopIOProcess> processes) {
    IOProcessCard card;
    card.title = "Processes";
    card.columns = {{{"Read", [](const TopIOProcess& process) { return process.incoming; }},
                     {"Write", [](const TopIOProcess& process) { return process.outgoing; }}}};
    card.processes = std::move(processes);
    return card;
}

class ProcessCardTest : public testing::Test {
protected:
    ProcessCardWidget& make(const ProcessCard& value) {
        card.emplace(value, icons, Scheme::dark, nullptr);
        card->setPlace({0, 0, kWidth, card->heightForWidth(kWidth)});
        return *card;
    }
    IOProcessCardWidget& make(const IOProcessCard& value) {
        ioCard.emplace(value, icons, Scheme::dark, nullptr);
        ioCard->setPlace({0, 0, kWidth, ioCard->heightForWidth(kWidth)});
        return *ioCard;
    }

    FakeProcessIconSource source;
    ProcessIcons icons{source};
    std::optional<ProcessCardWidget> card;
    std::optional<IOProcessCardWidget> ioCard;
};

TEST_F(ProcessCardTest, EmptyPlacesHoldSkeletons) {
    const auto rows = rowsOf(make(cardOf({{1, "init", 12.34}})));
    ASSERT_EQ(rows.size(), 5U);
    ASSERT_TRUE(rows[0]->content());
    EXPECT_EQ(rows[0]->content()->figures, std::vector<std::string>{"12.3%"});
    for (std::size_t index = 1; index < 5; ++index) EXPECT_FALSE(rows[index]->content());
}

TEST_F(ProcessCardTest, HeightIsTheSameForAnyNumberOfProcesses) {
    const int empty = make(cardOf({})).height();
    EXPECT_EQ(make(cardOf({{1, "a", 1}, {2, "b", 2}})).height(), empty);
    EXPECT_EQ(
        make(cardOf({{1, "a", 1}, {2, "b", 2}, {3, "c", 3}, {4, "d", 4}, {5, "e", 5}, {6, "f", 6}})).height(),
        empty);
}

TEST_F(ProcessCardTest, MoreProcessesThanPlacesAreLeftOut) {
    const auto rows = rowsOf(make(cardOf(std::vector<TopProcess>(9, {1, "a", 1}))));
    EXPECT_EQ(rows.size(), 5U);
}

TEST_F(ProcessCardTest, RowsAreKeptAsTheListChanges) {
    ProcessCardWidget& widget = make(cardOf({}));
    const auto before = rowsOf(widget);
    widget.setView(PanelView(cardOf({{1, "a", 1}})));
    EXPECT_EQ(rowsOf(widget), before);
    EXPECT_TRUE(before[0]->content());
    widget.setView(PanelView(cardOf({})));
    EXPECT_FALSE(before[0]->content());
}

TEST_F(ProcessCardTest, RowThatShowsTheSameIsNotPaintedAgain) {
    ProcessCardWidget& widget = make(cardOf({{1, "a", 1.01}, {2, "b", 2}}));
    widget.show();
    QApplication::processEvents();
    const auto rows = rowsOf(widget);
    PaintCounter first(*rows[0]);
    PaintCounter second(*rows[1]);
    widget.setView(PanelView(cardOf({{1, "a", 1.02}, {2, "b", 7}})));
    QApplication::processEvents();
    EXPECT_EQ(first.count, 0);
    EXPECT_EQ(second.count, 1);
}

TEST_F(ProcessCardTest, IconIsAskedForOncePerProcess) {
    ProcessCardWidget& widget = make(cardOf({{1, "a", 1}}));
    pictureOf(widget);
    widget.setView(PanelView(cardOf({{1, "a", 2}})));
    pictureOf(widget);
    EXPECT_EQ(source.questions, 1);
    widget.setView(PanelView(cardOf({{2, "b", 2}})));
    pictureOf(widget);
    EXPECT_EQ(source.questions, 2);
}

TEST_F(ProcessCardTest, NameOfAnyKindStaysBeforeTheFigure) {
    const std::string hebrew = "\u05de\u05e2\u05e8\u05db\u05ea \u05d4\u05e4\u05e2\u05dc\u05d4 ";
    const std::string family = "\U0001F468\u200D\U0001F469\u200D\U0001F467";
    const auto rightEnd = [this](const std::string& name) {
        const auto row = rowsOf(make(cardOf({{1, name, 99.9}})))[0];
        const QImage picture = pictureOf(*row);
        const double figure = PanelText::width({11, QFont::Medium, DigitWidth::monospaced}, "99.9%");
        const int gap = static_cast<int>(figure) + 6;
        return picture.copy(kWidth - gap, 0, gap, picture.height());
    };
    const QImage bare = rightEnd("");
    EXPECT_FALSE(isEmpty(bare));
    EXPECT_EQ(rightEnd(std::string(200, 'W')), bare);
    EXPECT_EQ(rightEnd(hebrew + hebrew + hebrew + hebrew + hebrew), bare);
    EXPECT_EQ(rightEnd(family + family + family + family + family + family + family + family), bare);
    EXPECT_EQ(rightEnd("two\nlines"), bare);
}

TEST_F(ProcessCardTest, NameStaysWhereItIsWhateverTheFigure) {
    const auto leftPart = [this](double value) {
        const auto row = rowsOf(make(cardOf({{1, "init", value}})))[0];
        return pictureOf(*row).copy(0, 0, 80, row->height());
    };
    for (const double value : {1.0, 7.0, 99.9, 1e5, 1e9}) EXPECT_EQ(leftPart(value), leftPart(0)) << value;
}

TEST_F(ProcessCardTest, CardWithoutFormatOrPlacesIsStillACard) {
    ProcessCard bare;
    bare.processes = {{1, "a", std::numeric_limits<double>::quiet_NaN()}};
    pictureOf(make(bare));
    bare.rowCount = -4;
    EXPECT_EQ(make(bare).height(), 0);
    bare.rowCount = 1'000'000;
    EXPECT_EQ(rowsOf(make(bare)).size(), 50U);
}

TEST_F(ProcessCardTest, RatesBelowOneThousandAreADash) {
    EXPECT_EQ(IOProcessCardWidget::rateText(0), "—");
    EXPECT_EQ(IOProcessCardWidget::rateText(999.9), "—");
    EXPECT_EQ(IOProcessCardWidget::rateText(1000), "1K");
    EXPECT_EQ(IOProcessCardWidget::rateText(3'400'000), "3.4M");
}

TEST_F(ProcessCardTest, RatesThatAreNoneAreADash) {
    for (const double rate :
         {-5000.0, std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(IOProcessCardWidget::rateText(rate), "—");
    }
}

TEST_F(ProcessCardTest, RatesStandInTheirColumns) {
    const auto rows = rowsOf(make(ioCardOf({{1, "rsync", 12'000, 10}})));
    ASSERT_EQ(rows.size(), 5U);
    EXPECT_EQ(rows[0]->content()->figures, (std::vector<std::string>{"12K", "—"}));
    EXPECT_EQ(rows[0]->height(), 17);
}

TEST_F(ProcessCardTest, FirstColumnsLabelUsesWhatTheTitleLeaves) {
    const auto header = [](const char* title, const char* first) {
        IOHeaderWidget widget(Scheme::dark, nullptr);
        widget.setTexts(title, {first, "Up"});
        widget.setPlace({0, 0, 268, widget.heightForWidth(268)});
        return pictureOf(widget);
    };
    // The box begins at 174; a label that is too wide for it is neither cut nor smaller.
    const QImage longLabel = header("", "WWWWWWWW");
    EXPECT_FALSE(isEmpty(longLabel.copy(130, 0, 44, longLabel.height())));
    EXPECT_EQ(longLabel.copy(219, 0, 49, longLabel.height()),
              header("", "Down").copy(219, 0, 49, longLabel.height()));
}

TEST_F(ProcessCardTest, LabelsOfColumnsHaveOneSize) {
    const auto second = [](const std::string& first) {
        IOHeaderWidget widget(Scheme::dark, nullptr);
        widget.setTexts("Processes", {first, "Up"});
        widget.setPlace({0, 0, 268, widget.heightForWidth(268)});
        return pictureOf(widget).copy(219, 0, 49, widget.height());
    };
    EXPECT_NE(second(std::string(200, 'W')), second("Down"));
}

TEST_F(ProcessCardTest, FigureNeverLeavesItsColumn) {
    const auto pictureWith = [this](double incoming) {
        return pictureOf(*rowsOf(make(ioCardOf({{1, "", incoming, 5000}})))[0]);
    };
    const QImage small = pictureWith(5000);
    for (const double rate : {1e6, 1e9, 1e12, 1e18}) {
        const QImage large = pictureWith(rate);
        // The boxes begin at 174 and 224.
        EXPECT_EQ(large.copy(0, 0, 174, 17), small.copy(0, 0, 174, 17)) << rate;
        EXPECT_EQ(large.copy(219, 0, 49, 17), small.copy(219, 0, 49, 17)) << rate;
    }
}

TEST_F(ProcessCardTest, IOCardKeepsItsHeightWhileLoading) {
    const int empty = make(ioCardOf({})).height();
    EXPECT_EQ(make(ioCardOf({{1, "rsync", 12'000, 10}})).height(), empty);
}

}  // namespace
}  // namespace velmora
