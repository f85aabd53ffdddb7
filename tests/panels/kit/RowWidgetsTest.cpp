// What the rows of a card show, and that none of their parts moves when a figure changes.

#include "panels/kit/BarRowWidget.h"
#include "panels/kit/BigRateHeaderWidget.h"
#include "panels/kit/CardHeaderWidget.h"
#include "panels/kit/CoreGridWidget.h"
#include "panels/kit/EmptyStateWidget.h"
#include "panels/kit/KitFixture.h"
#include "panels/kit/MetricRowWidget.h"
#include "panels/kit/PeakRowWidget.h"
#include "panels/kit/RingRowWidget.h"
#include "panels/kit/RingWidget.h"
#include "panels/kit/Series.h"
#include "panels/kit/TextLineWidget.h"
#include "panels/kit/UsageBarWidget.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora {
namespace {

constexpr int kWidth = 268;
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
const char* const kFigures[] = {"0", "1", "7", "42", "999", "123456", "1000000000"};
const std::string kLong(200, 'W');
const std::string kHebrew = "\u05de\u05e2\u05e8\u05db\u05ea \u05d4\u05e4\u05e2\u05dc\u05d4";
const std::string kEmoji = "\U0001F468\u200D\U0001F469\u200D\U0001F467";

template <typename Widget, typename Value>
QImage painted(const Value& value, int width = kWidth) {
    Widget widget(value, Scheme::dark, nullptr);
    widget.setPlace({0, 0, width, widget.heightForWidth(width)});
    return pictureOf(widget);
}

TEST(CardHeader, EmptyTextsDrawNothing) {
    const CardHeaderWidget header({}, Scheme::dark, nullptr);
    EXPECT_EQ(header.heightForWidth(kWidth), 0);
}

TEST(CardHeader, NoteAddsALineBelow) {
    const CardHeaderWidget bare({"Cores", "", ""}, Scheme::dark, nullptr);
    const CardHeaderWidget noted({"Cores", "", "8 cores"}, Scheme::dark, nullptr);
    EXPECT_GT(noted.heightForWidth(kWidth), bare.heightForWidth(kWidth) + 8);
}

TEST(CardHeader, TitleStaysWhereItIsWhateverTheFigure) {
    const QImage first = painted<CardHeaderWidget>(CardHeader{"Memory", "0", ""});
    for (const char* figure : kFigures) {
        const QImage next = painted<CardHeaderWidget>(CardHeader{"Memory", figure, ""});
        EXPECT_EQ(next.copy(0, 0, 120, next.height()), first.copy(0, 0, 120, first.height())) << figure;
    }
}

TEST(MetricRow, IsAtLeastFifteenHigh) {
    const MetricRowWidget row({}, Scheme::dark, nullptr);
    EXPECT_GE(row.heightForWidth(kWidth), 15);
}

TEST(MetricRow, DotOfFiveStartsATintedRow) {
    const QImage plain = painted<MetricRowWidget>(MetricRow{std::nullopt, "", "", false});
    EXPECT_TRUE(isEmpty(plain));
    const QImage tinted = painted<MetricRowWidget>(MetricRow{Series::red, "", "", false});
    const int middle = tinted.height() / 2;
    EXPECT_EQ(tinted.pixelColor(2, middle), Series::red);
    EXPECT_EQ(tinted.pixelColor(6, middle).alpha(), 0);
}

TEST(MetricRow, LabelStaysWhereItIsWhateverTheFigure) {
    for (const bool mono : {false, true}) {
        const QImage first = painted<MetricRowWidget>(MetricRow{Series::primary, "Usage", "0", mono});
        for (const char* figure : kFigures) {
            const QImage next = painted<MetricRowWidget>(MetricRow{Series::primary, "Usage", figure, mono});
            EXPECT_EQ(next.copy(0, 0, 120, next.height()), first.copy(0, 0, 120, first.height())) << figure;
        }
    }
}

TEST(MetricRow, LabelNeverReachesTheFigure) {
    const QImage figure = painted<MetricRowWidget>(MetricRow{std::nullopt, "", "42%", true});
    for (const std::string& label : {kLong, kHebrew + kLong, kEmoji + kLong}) {
        const QImage both = painted<MetricRowWidget>(MetricRow{std::nullopt, label, "42%", true});
        EXPECT_EQ(both.copy(kWidth - 34, 0, 34, both.height()),
                  figure.copy(kWidth - 34, 0, 34, both.height()));
    }
}

TEST(BarRow, IsSixteenHigh) {
    const BarRowWidget row({}, Scheme::dark, nullptr);
    EXPECT_EQ(row.heightForWidth(kWidth), 16);
}

TEST(BarRow, BarKeepsItsLengthWhateverTheFigure) {
    BarRow row{"Swap", {1, Series::primary, 4}, "0", 0, "9999999999"};
    const auto endOfBar = [](const QImage& picture) {
        int end = 0;
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, picture.height() / 2) == Series::primary) end = x;
        }
        return end;
    };
    const int end = endOfBar(painted<BarRowWidget>(row));
    EXPECT_GT(end, 60);
    for (const char* figure : kFigures) {
        row.value = figure;
        EXPECT_EQ(endOfBar(painted<BarRowWidget>(row)), end) << figure;
    }
}

TEST(BarRow, ShortFigureKeepsItsLeastWidth) {
    const QImage narrow = painted<BarRowWidget>(BarRow{"", {1, Series::primary, 4}, "", 32, ""});
    const int middle = narrow.height() / 2;
    EXPECT_EQ(narrow.pixelColor(kWidth - 32 - 8 - 4, middle), Series::primary);
    EXPECT_EQ(narrow.pixelColor(kWidth - 32 - 4, middle).alpha(), 0);
}

TEST(BigRateHeader, TrailingHalfStaysWhateverTheLeadingFigure) {
    const auto trailing = [](const char* figure) {
        const QImage picture = painted<BigRateHeaderWidget>(
            BigRateHeader{figure, "Upload", Series::primary, "5 KB/s", "Download", Series::secondary});
        return picture.copy(139, 0, kWidth - 139, picture.height());
    };
    for (const char* figure : kFigures) EXPECT_EQ(trailing(figure), trailing("0")) << figure;
    EXPECT_EQ(trailing(kLong.c_str()), trailing("0"));
}

TEST(PeakRow, LabelsStayWhateverTheFigures) {
    const auto secondLabel = [](const char* figure) {
        const QImage picture = painted<PeakRowWidget>(PeakRow{{{"Peak", figure}, {"Peak", "0"}}});
        return picture.copy(137, 0, kWidth - 137, picture.height());
    };
    for (const char* figure : kFigures) EXPECT_EQ(secondLabel(figure), secondLabel("0")) << figure;
    EXPECT_EQ(secondLabel(kLong.c_str()), secondLabel("0"));
}

TEST(PeakRow, TwoPairsStandBelowTheHalvesOfARateHeader) {
    for (const char* label : {"Peak", "Write"}) {
        const QImage picture = painted<PeakRowWidget>(PeakRow{{{"Read", "1 MB/s"}, {label, "2 MB/s"}}});
        EXPECT_TRUE(isEmpty(picture.copy(129, 0, 10, picture.height()))) << label;
        EXPECT_FALSE(isEmpty(picture.copy(139, 0, 3, picture.height()))) << label;
    }
}

TEST(PeakRow, WithoutItemsItTakesNoRoom) {
    const PeakRowWidget row({}, Scheme::dark, nullptr);
    EXPECT_EQ(row.heightForWidth(kWidth), 0);
}

TEST(RingStat, RingStaysWhateverItsFigure) {
    const auto outside = [](const char* figure) {
        RingRowWidget row({{{0.5, figure, "Usage", Series::primary, 46, 5, 11}}, 26}, Scheme::dark, nullptr);
        row.setPlace({0, 0, kWidth, row.heightForWidth(kWidth)});
        QImage picture = pictureOf(row);
        // Nothing of the figure reaches the ring around it.
        QPainter painter(&picture);
        painter.setCompositionMode(QPainter::CompositionMode_Clear);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::black);
        painter.drawEllipse(QPointF(kWidth / 2.0, 25.5), 20, 20);
        return picture;
    };
    for (const char* figure : kFigures) EXPECT_EQ(outside(figure), outside("0")) << figure;
}

TEST(RingStat, ZeroShowsADotAtTheTop) {
    RingWidget ring({0, "", "", Series::primary, 46, 5, 11}, Scheme::dark, nullptr);
    ring.resize(51, ring.heightNeeded());
    const QImage picture = pictureOf(ring);
    EXPECT_EQ(picture.pixelColor(25, 2), Series::primary);
    EXPECT_NE(picture.pixelColor(25, 48), Series::primary);
}

TEST(RingStat, OneAndAHalfIsAFullCircle) {
    RingWidget ring({1.5, "", "", Series::primary, 46, 5, 11}, Scheme::dark, nullptr);
    ring.resize(51, ring.heightNeeded());
    const QImage picture = pictureOf(ring);
    for (const QPoint place : {QPoint(25, 2), QPoint(48, 25), QPoint(25, 48), QPoint(2, 25)}) {
        EXPECT_EQ(picture.pixelColor(place), Series::primary);
    }
}

TEST(RingStat, BadSizesAreHeld) {
    for (const double size : {0.0, -4.0, kNoNumber, 1e9}) {
        RingRowWidget row({{{kNoNumber, "1", "Usage", Series::primary, size, size, size}}, kNoNumber},
                          Scheme::dark, nullptr);
        row.setPlace({0, 0, kWidth, 60});
        pictureOf(row);
        EXPECT_GE(row.heightForWidth(kWidth), 0);
    }
}

TEST(RingRow, KeepsItsRingsAsFiguresChange) {
    RingRow row{{{0.1, "10%", "Usage", Series::primary, 46, 5, 11}}, 26};
    RingRowWidget widget(row, Scheme::dark, nullptr);
    widget.resize(kWidth, widget.heightForWidth(kWidth));
    const QObjectList before = widget.children();
    row.rings[0].fraction = 0.9;
    widget.setView(PanelView(row));
    EXPECT_EQ(widget.children(), before);
}

TEST(RingRow, WithoutRingsItTakesNoRoom) {
    const RingRowWidget row({}, Scheme::dark, nullptr);
    EXPECT_EQ(row.heightForWidth(kWidth), 0);
}

TEST(CoreGrid, TwoHundredAndFiftySixCoresAreOneWidget) {
    CoreGrid grid;
    grid.rings.assign(256, {0.5, Series::primary});
    CoreGridWidget widget(grid, Scheme::dark, nullptr);
    widget.resize(kWidth, widget.heightForWidth(kWidth));
    EXPECT_EQ(widget.height(), 24 * 19 + 23 * 4);
    EXPECT_TRUE(widget.children().isEmpty());
    const QImage picture = pictureOf(widget);
    EXPECT_FALSE(isEmpty(picture.copy(0, widget.height() - 19, 24, 19)));
}

TEST(CoreGrid, WithoutCoresItTakesNoRoom) {
    const CoreGridWidget grid({}, Scheme::dark, nullptr);
    EXPECT_EQ(grid.heightForWidth(kWidth), 0);
}

TEST(UsageBar, HeightIsTheBars) {
    const UsageBarWidget bar({0.5, Series::primary, 4}, Scheme::dark, nullptr);
    EXPECT_EQ(bar.heightForWidth(kWidth), 4);
    const UsageBarWidget bad({0.5, Series::primary, kNoNumber}, Scheme::dark, nullptr);
    EXPECT_EQ(bad.heightForWidth(kWidth), 0);
}

TEST(UsageBar, SpokenValueIsHeldWithinTheWhole) {
    EXPECT_EQ(UsageBarWidget({2, Series::primary, 4}, Scheme::dark, nullptr).spoken().value,
              QStringLiteral("100%"));
    EXPECT_EQ(UsageBarWidget({kNoNumber, Series::primary, 4}, Scheme::dark, nullptr).spoken().value,
              QStringLiteral("0%"));
}

TEST(TextLine, EmptyTextTakesNoRoom) {
    const TextLineWidget line({}, Scheme::dark, nullptr);
    EXPECT_EQ(line.heightForWidth(kWidth), 0);
}

TEST(TextLine, BadSizeIsStillALine) {
    for (const double size : {0.0, -3.0, kNoNumber}) {
        TextLineWidget line({"Root", size}, Scheme::dark, nullptr);
        EXPECT_GT(line.heightForWidth(kWidth), 0);
        line.resize(kWidth, line.heightForWidth(kWidth));
        pictureOf(line);
    }
}

TEST(EmptyState, UnknownSymbolLeavesTheText) {
    EXPECT_FALSE(isEmpty(painted<EmptyStateWidget>(EmptyState{"no.such.symbol", "Nothing here"})));
}

TEST(Rows, NarrowPlacesAndTextsOfAllKindsAreDrawn) {
    for (const int width : {0, 1, 20, 60, kWidth}) {
        for (const std::string& text : {std::string(), kLong, kHebrew, kEmoji}) {
            painted<CardHeaderWidget>(CardHeader{text, text, text}, width);
            painted<MetricRowWidget>(MetricRow{Series::red, text, text, true}, width);
            painted<BarRowWidget>(BarRow{text, {kNoNumber, Series::red, 40}, text, kNoNumber, text}, width);
            painted<BigRateHeaderWidget>(BigRateHeader{text, text, Series::red, text, text, Series::red},
                                         width);
            painted<PeakRowWidget>(PeakRow{{{text, text}, {text, text}, {text, text}}}, width);
            painted<EmptyStateWidget>(EmptyState{text, text}, width);
        }
    }
}

}  // namespace
}  // namespace velmora
