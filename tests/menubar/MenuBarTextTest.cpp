#include "menubar/MenuBarText.h"

#include "look/PinnedFont.h"
#include "menubar/InkBox.h"
#include "menubar/MenuBarGeometry.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include <cmath>

namespace velmora {
namespace {

namespace Geometry = MenuBarGeometry;

constexpr double kRatios[] = {1.0, 1.25, 1.5, 2.0, 3.0};
constexpr int kMargin = 40;

/// The ink of a text at its place, in pixels of an image whose top left corner is 0, 0; drawn with a margin
/// so that nothing is cut off.
QRect inkOf(const TextFont& font, const QString& text, Geometry::TextPlace place, double imageWidth,
            double ratio) {
    const int width = static_cast<int>(std::ceil(imageWidth * ratio));
    const int height = static_cast<int>(std::ceil(Geometry::kHeight * ratio));
    QImage image(width + 2 * kMargin, height + 2 * kMargin, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.translate(kMargin, kMargin);
    MenuBarText::draw(painter, font, text, {place.x, Geometry::kHeight - place.y}, ratio, Qt::black);
    painter.end();
    return inkBox(image).translated(-kMargin, -kMargin);
}

struct TwoTexts {
    QRect top;
    QRect bottom;
};

void expectInsideAndApart(const TwoTexts& ink, double imageWidth, double ratio, const std::string& what) {
    const QRect image(0, 0, static_cast<int>(std::ceil(imageWidth * ratio)),
                      static_cast<int>(std::ceil(Geometry::kHeight * ratio)));
    ASSERT_FALSE(ink.top.isEmpty()) << what;
    ASSERT_FALSE(ink.bottom.isEmpty()) << what;
    EXPECT_TRUE(image.contains(ink.top)) << what;
    EXPECT_TRUE(image.contains(ink.bottom)) << what;
    EXPECT_LT(ink.top.bottom(), ink.bottom.top()) << what;
}

TEST(MenuBarText, DigitsAreMonospaced) {
    for (const QString& family : familiesToTry()) {
        const PinnedFont pinned(family);
        for (const TextFont& font : {valueFont, singleFont, twoLineFont}) {
            const double widest = MenuBarText::width(font, u"0");
            for (char16_t digit = u'1'; digit <= u'9'; ++digit) {
                EXPECT_DOUBLE_EQ(MenuBarText::width(font, QString(QChar(digit))), widest);
            }
            EXPECT_DOUBLE_EQ(MenuBarText::width(font, u"11%"), MenuBarText::width(font, u"88%"));
        }
    }
}

TEST(MenuBarText, WidthGrowsWithTheFontSizeAlone) {
    TextFont twice = valueFont;
    twice.size *= 2;
    EXPECT_DOUBLE_EQ(MenuBarText::width(twice, u"42%"), 2 * MenuBarText::width(valueFont, u"42%"));
}

TEST(MenuBarText, EmptyTextHasNoWidth) {
    EXPECT_EQ(MenuBarText::width(valueFont, u""), 0);
}

TEST(MenuBarText, BlankAtTheEndHasItsWidth) {
    EXPECT_GT(MenuBarText::width(twoLineFont, u"↑ "), MenuBarText::width(twoLineFont, u"↑"));
}

TEST(MenuBarText, SelectorAfterTheBoltTakesNoRoom) {
    EXPECT_DOUBLE_EQ(MenuBarText::width(valueFont, u"\u26A1\uFE0E80%"),
                     MenuBarText::width(valueFont, u"\u26A180%"));
}

TEST(MenuBarText, BoltIsDrawnInTheInk) {
    QImage image(40, 40, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    MenuBarText::draw(painter, valueFont, u"\u26A1\uFE0E", {2, 10}, 3, QColor(255, 0, 0));
    painter.end();
    int solid = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            if (color.alpha() < 200) continue;
            ++solid;
            EXPECT_EQ(color.red(), 255);
            EXPECT_EQ(color.green() + color.blue(), 0);
        }
    }
    EXPECT_GT(solid, 20);
}

TEST(MenuBarText, FittingSizeShrinksOnlyWhatIsTooWide) {
    EXPECT_DOUBLE_EQ(MenuBarText::fittingSize(valueFont, u"5%", 100), 9.5);
    TextFont fitted = valueFont;
    fitted.size = MenuBarText::fittingSize(valueFont, u"100%", 22);
    EXPECT_LT(fitted.size, 9.5);
    EXPECT_NEAR(MenuBarText::width(fitted, u"100%"), 22, 1e-9);
}

TEST(MenuBarText, FractionalSizesAreHonouredAtEveryRatio) {
    // An "M" has its ink between the baseline and the height of capitals, so its height measures the size.
    const auto inkHeight = [](double size, double ratio) {
        TextFont font = singleFont;
        font.size = size;
        return inkOf(font, QStringLiteral("MMM"), {2, 5}, 40, ratio).height();
    };
    const int at95 = inkHeight(9.5, 8);
    EXPECT_GT(at95, inkHeight(9, 8));
    EXPECT_LT(at95, inkHeight(10, 8));
    EXPECT_GT(inkHeight(5.5, 8), inkHeight(5, 8));
}

TEST(MenuBarText, StackedTextsLieInsideTheImageAndApart) {
    for (const QString& family : familiesToTry()) {
        const PinnedFont pinned(family);
        for (const double ratio : kRatios) {
            for (const char* label : {"CPU", "MEM", "DSK", "SEN", "BAT"}) {
                for (const char* value :
                     {"0%", "100%", "88%", "56°", "131°", "—", "\u26A1\uFE0E100%", "\u26A1\uFE0E—"}) {
                    const QString top = QString::fromUtf8(label);
                    const QString bottom = QString::fromUtf8(value);
                    const double topWidth = MenuBarText::width(labelFont, top);
                    const double bottomWidth = MenuBarText::width(valueFont, bottom);
                    const double width =
                        Geometry::stackedWidth(topWidth, bottomWidth, MenuBarText::width(valueFont, u"100%"));
                    expectInsideAndApart(
                        {inkOf(labelFont, top, Geometry::stackedLabel(width, topWidth, 7), width, ratio),
                         inkOf(valueFont, bottom, Geometry::stackedValue(width, bottomWidth, 9.5), width,
                               ratio)},
                        width, ratio, family.toStdString() + " " + label + " " + value);
                }
            }
        }
    }
}

TEST(MenuBarText, TwoLinesLieInsideTheImageAndApart) {
    for (const QString& family : familiesToTry()) {
        const PinnedFont pinned(family);
        for (const double ratio : kRatios) {
            for (const char* rate : {"0K", "999K", "3.4M", "99.9M", "120M", "1.2G", "4294967.3G"}) {
                const QString top = QStringLiteral("↑ ") + QString::fromUtf8(rate);
                const QString bottom = QStringLiteral("↓ ") + QString::fromUtf8(rate);
                const double topWidth = MenuBarText::width(twoLineFont, top);
                const double bottomWidth = MenuBarText::width(twoLineFont, bottom);
                const double width = Geometry::twoLinesWidth(topWidth, bottomWidth,
                                                             MenuBarText::width(twoLineFont, u"↓ 99.9M"));
                expectInsideAndApart(
                    {inkOf(twoLineFont, top, Geometry::topLine(width, topWidth, 9), width, ratio),
                     inkOf(twoLineFont, bottom, Geometry::bottomLine(width, bottomWidth, 9), width, ratio)},
                    width, ratio, family.toStdString() + " " + rate);
            }
        }
    }
}

TEST(MenuBarText, ColumnLettersLieInsideTheImageAndApart) {
    for (const QString& family : familiesToTry()) {
        const PinnedFont pinned(family);
        for (const double ratio : kRatios) {
            for (const char* text : {"CPU", "MEM", "DSK", "NET", "SEN", "BAT"}) {
                const QString label = QString::fromUtf8(text);
                std::vector<double> widths;
                for (const QChar letter : label) {
                    widths.push_back(MenuBarText::width(verticalLabelFont, QString(letter)));
                }
                const double column = Geometry::letterColumn(widths);
                QRect above;
                for (std::size_t index = 0; index < 3; ++index) {
                    const QRect ink = inkOf(verticalLabelFont, QString(label[static_cast<qsizetype>(index)]),
                                            Geometry::columnLetter(index, 3, column, widths[index], 5.5),
                                            column + 2, ratio);
                    const QRect image(0, 0, static_cast<int>(std::ceil((column + 2) * ratio)),
                                      static_cast<int>(std::ceil(22 * ratio)));
                    EXPECT_TRUE(image.contains(ink)) << text << " " << family.toStdString();
                    if (index > 0) {
                        EXPECT_LT(above.bottom(), ink.top()) << text << " " << family.toStdString();
                    }
                    above = ink;
                }
            }
        }
    }
}

}  // namespace
}  // namespace velmora
