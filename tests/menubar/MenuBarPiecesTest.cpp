#include "menubar/MenuBarPieces.h"

#include "menubar/InkBox.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace velmora::MenuBarPieces {
namespace {

namespace Geometry = MenuBarGeometry;

/// At this ratio every edge that matters here lies between two pixels.
constexpr int kRatio = 4;
const QColor kRed(255, 0, 0);
const QColor kBlue(0, 0, 255);
/// Shapes in red, texts in blue.
const Ink kInk{kRed, kBlue, false};

QImage draw(const Piece& piece) {
    MenuBarCanvas canvas(piece.width, kRatio);
    piece.draw(canvas);
    return canvas.finish().convertToFormat(QImage::Format_ARGB32);
}

/// The pixel at a point; coordinates as the pieces have them.
QColor colorAt(const QImage& image, double x, double y) {
    return image.pixelColor(static_cast<int>(x * kRatio), static_cast<int>((Geometry::kHeight - y) * kRatio));
}

void expectColor(const QColor& actual, const QColor& ink, double alpha) {
    EXPECT_NEAR(actual.alphaF(), alpha, 0.01);
    EXPECT_EQ(actual.rgb(), ink.rgb());
}

/// How many pixels of an image are covered wholly, or nearly so.
int solidPixels(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) >= 250) ++count;
        }
    }
    return count;
}

/// The largest opacity among the pixels of this colour, from 0 to 1.
double strongest(const QImage& image, const QColor& color) {
    double alpha = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            // Faint pixels of a premultiplied image do not say their colour exactly.
            if (pixel.alphaF() > 0.5F && pixel.rgb() == color.rgb())
                alpha = std::max(alpha, static_cast<double>(pixel.alphaF()));
        }
    }
    return alpha;
}

const QString kLongText = QString(200, u'W');
const QString kRightToLeft = QStringLiteral("מעבד");
/// A face, a rocket and a letter with two marks: three characters, and seven code units.
const QString kThreeCharacters = QStringLiteral(u"\U0001F600\U0001F680a\u0301\u0323");

TEST(MenuBarPieces, OutlinesAreTheShapesColourAtFourTenths) {
    expectColor(colorAt(draw(vial(0, kInk)), 0.7, 11), kRed, 0.4);
    expectColor(colorAt(draw(pie(0, kInk)), 0.7, 10.9), kRed, 0.4);
    expectColor(colorAt(draw(labeledBar({}, 0, kInk)), 0.9, 11), kRed, 0.4);
}

TEST(MenuBarPieces, FillingsAreTheShapesColourAtFullStrength) {
    expectColor(colorAt(draw(vial(1, kInk)), 5, 11), kRed, 1);
    expectColor(colorAt(draw(pie(1, kInk)), 9, 11), kRed, 1);
    expectColor(colorAt(draw(labeledBar({}, 1, kInk)), 11, 11), kRed, 1);
}

TEST(MenuBarPieces, FillingsKeepTheRoundCornersOfTheirInside) {
    // The corner of the rectangle inside the outline, half a pixel towards its middle.
    const Geometry::Rect vialInside = Geometry::vial().inner();
    EXPECT_EQ(colorAt(draw(vial(1, kInk)), vialInside.x + 0.4, vialInside.y + 0.4).alpha(), 0);
    const Geometry::Rect barInside = Geometry::labeledBar(22, false).inner();
    EXPECT_EQ(colorAt(draw(labeledBar({}, 1, kInk)), barInside.x + 0.1, barInside.y + 0.1).alpha(), 0);
}

TEST(MenuBarPieces, FrameOfAGraphHasRoundCorners) {
    const QImage image = draw(barGraph({}, kInk, Geometry::kGraph));
    EXPECT_EQ(colorAt(image, 0.1, 19.3).alpha(), 0);
    EXPECT_EQ(colorAt(image, 31.8, 2.8).alpha(), 0);
    EXPECT_GT(colorAt(image, 0.1, 11).alpha(), 0);
}

TEST(MenuBarPieces, BarWithoutALabelStandsInTheMiddleAndOneWithALabelBelowIt) {
    const QImage alone = draw(labeledBar({}, 1, kInk));
    EXPECT_EQ(inkBox(alone).top(), (22 - 14.75) * kRatio);
    EXPECT_EQ(inkBox(alone).bottom() + 1, (22 - 7.25) * kRatio);
    const QImage labelled = draw(labeledBar(QStringLiteral("CPU"), 1, kInk));
    EXPECT_EQ(inkBox(labelled).bottom() + 1, (22 - 4) * kRatio);
    EXPECT_LT(inkBox(labelled).top(), (22 - 13) * kRatio) << "the label";
}

TEST(MenuBarPieces, LabelThatIsWiderThanTheBarWidensTheImage) {
    const double label = MenuBarText::width(labelFont, u"WWWWWW");
    ASSERT_GT(label, 20);
    EXPECT_DOUBLE_EQ(labeledBar(QStringLiteral("WWWWWW"), 0.5, kInk).width, std::ceil(label) + 2);
}

TEST(MenuBarPieces, DualGraphScalesByAllValuesAndNotOnlyByThoseThatShow) {
    std::vector<double> primary(20, 5e5);
    primary.front() = 1e6;  // Out of sight by now.
    const QImage image = draw(dualGraph(primary, {}, 1e5, kInk, Geometry::kGraph));
    // Half of 15 points from 3.5 up.
    const double x = 1 + 1.875 * 8 + 0.6;
    EXPECT_EQ(colorAt(image, x, 11.5).alpha(), 0);
    expectColor(colorAt(image, x, 10.5), kRed, 0.85);
}

TEST(MenuBarPieces, DualGraphOfNothingIsItsFrame) {
    EXPECT_EQ(draw(dualGraph({}, {}, 1e5, kInk, Geometry::kGraph)),
              draw(barGraph({}, kInk, Geometry::kGraph)));
}

TEST(MenuBarPieces, FigureWithoutALabelIsTheFigureAloneAndLarger) {
    const Piece figure = stacked({}, QStringLiteral("42%"), kInk);
    EXPECT_DOUBLE_EQ(figure.width, std::ceil(MenuBarText::width(singleFont, u"42%")) + 2);
    EXPECT_EQ(draw(figure), draw(single(QStringLiteral("42%"), kInk)));
}

TEST(MenuBarPieces, LabelsAreTheTextColourAtSeventyTwoHundredths) {
    const QImage above = draw(stacked(QStringLiteral("MEM"), {}, kInk));
    EXPECT_NEAR(strongest(above, kBlue), 0.72, 0.01);
    EXPECT_EQ(strongest(above, kRed), 0);
    const QImage overBar = draw(labeledBar(QStringLiteral("MEM"), 0, kInk));
    EXPECT_NEAR(strongest(overBar, kBlue), 0.72, 0.01);
    // Letters of 5.5 points have strokes that cover no pixel wholly, so only the bounds are sure.
    const QImage beside = draw(withVerticalLabel(QStringLiteral("MEM"), {10, [](MenuBarCanvas&) {}}, kInk));
    EXPECT_LE(strongest(beside, kBlue), 0.73);
    EXPECT_GT(strongest(beside, kBlue), 0.6);
    EXPECT_EQ(strongest(beside, kRed), 0);
}

TEST(MenuBarPieces, FiguresAreTheTextColourAtFullStrength) {
    for (const QImage& image :
         {draw(stacked(QStringLiteral("MEM"), QStringLiteral("88%"), kInk)),
          draw(single(QStringLiteral("88%"), kInk)), draw(twoLines(QStringLiteral("↑ 1K"), {}, kInk)),
          draw(twoLines({}, QStringLiteral("↓ 1K"), kInk))}) {
        EXPECT_NEAR(strongest(image, kBlue), 1, 0.01);
        EXPECT_EQ(strongest(image, kRed), 0);
    }
}

TEST(MenuBarPieces, TwoLinesEndAtTheSamePlaceAndDoNotTouch) {
    const QRect top = inkBox(draw(twoLines(QStringLiteral("↑ 1K"), {}, kInk)));
    const QRect bottom = inkBox(draw(twoLines({}, QStringLiteral("↓ 999K"), kInk)));
    EXPECT_NEAR(top.right(), bottom.right(), 1);
    EXPECT_LT(bottom.left(), top.left());
    EXPECT_LT(top.bottom(), bottom.top());
}

TEST(MenuBarPieces, VerticalLabelIsTheFirstThreeCharacters) {
    const Piece shape = vial(0.5, kInk);
    const Piece three = withVerticalLabel(QStringLiteral("CPU"), shape, kInk);
    const Piece more = withVerticalLabel(QStringLiteral("CPUWWW"), shape, kInk);
    EXPECT_DOUBLE_EQ(more.width, three.width);
    EXPECT_EQ(draw(more), draw(three));
    EXPECT_NE(draw(withVerticalLabel(QStringLiteral("CP"), shape, kInk)), draw(three));
}

TEST(MenuBarPieces, CharacterOfAVerticalLabelIsWhatAReaderTakesForOne) {
    // Cut in their middle they would be boxes, and the marks would stand alone.
    const Piece shape = vial(0.5, kInk);
    const Piece three = withVerticalLabel(kThreeCharacters, shape, kInk);
    const Piece more = withVerticalLabel(kThreeCharacters + QStringLiteral("WWW"), shape, kInk);
    EXPECT_DOUBLE_EQ(more.width, three.width);
    EXPECT_EQ(draw(more), draw(three));
    // The third one is a letter with two marks.
    const QString two = kThreeCharacters.chopped(3);
    EXPECT_NE(draw(withVerticalLabel(two, shape, kInk)), draw(three));
    EXPECT_NE(draw(withVerticalLabel(QStringLiteral(u"a\u0323"), shape, kInk)),
              draw(withVerticalLabel(QStringLiteral("a"), shape, kInk)))
        << "and keeps its marks";
}

TEST(MenuBarPieces, EmptyVerticalLabelLeavesAColumnOfFourPoints) {
    const Piece alone = vial(0.5, kInk);
    const Piece beside = withVerticalLabel({}, alone, kInk);
    EXPECT_DOUBLE_EQ(beside.width, 4 + 2 + 10);
    EXPECT_EQ(draw(beside).copy(6 * kRatio, 0, 10 * kRatio, 22 * kRatio), draw(alone).copy());
}

TEST(MenuBarPieces, FractionsThatAreNoneShowAnEmptyOrAFullShape) {
    constexpr double nothing = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinite = std::numeric_limits<double>::infinity();
    const auto shapes = {+[](double fraction) { return draw(vial(fraction, kInk)); },
                         +[](double fraction) { return draw(pie(fraction, kInk)); },
                         +[](double fraction) { return draw(labeledBar({}, fraction, kInk)); }};
    for (const auto& shape : shapes) {
        for (const double empty : {nothing, -1.0, -infinite}) EXPECT_EQ(shape(empty), shape(0));
        for (const double full : {1.5, 1e300, infinite}) EXPECT_EQ(shape(full), shape(1));
        EXPECT_GT(solidPixels(shape(1)), solidPixels(shape(0)));
    }
}

TEST(MenuBarPieces, AnyTextGivesAnImageOfItsWidth) {
    for (const QString& text : {QString(), kLongText, kRightToLeft, kThreeCharacters}) {
        for (const Piece& piece :
             {stacked(text, text, kInk), twoLines(text, text, kInk), single(text, kInk),
              labeledBar(text, 0.5, kInk), withVerticalLabel(text, vial(0.5, kInk), kInk),
              squareStacked(text, text, kInk), squareTwoLines(text, text, kInk)}) {
            const QImage image = draw(piece);
            ASSERT_EQ(image.height(), 22 * kRatio);
            EXPECT_EQ(image.width(), std::ceil(piece.width * kRatio));
        }
    }
}

}  // namespace
}  // namespace velmora::MenuBarPieces
