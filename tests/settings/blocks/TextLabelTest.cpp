#include "settings/blocks/TextLabel.h"

#include "look/Ink.h"
#include "settings/Ground.h"
#include "settings/PaintCounter.h"
#include "settings/controls/SettingsScheme.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QWidget>

#include <string>

namespace velmora {
namespace {

/// The strongest ink in a picture over white or black.
QColor strongest(const QImage& picture, const QColor& ground) {
    QColor found = ground;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            if (std::abs(pixel.lightness() - ground.lightness()) >
                std::abs(found.lightness() - ground.lightness())) {
                found = pixel;
            }
        }
    }
    return found;
}

TEST(TextLabelTest, InkIsThatOfTheRankInTheScheme) {
    QWidget window;
    for (const Scheme scheme : {Scheme::light, Scheme::dark}) {
        setScheme(window, scheme);
        const QColor ground = scheme == Scheme::dark ? Qt::black : Qt::white;
        TextLabel label({.size = 30, .weight = QFont::Black, .rank = InkRank::tertiary}, &window);
        label.setWords("█");
        label.resize(60, 40);
        EXPECT_TRUE(
            isColor(strongest(paintedOver(label, ground), ground), blended(Ink::tertiary(scheme), ground)));
    }
}

TEST(TextLabelTest, TintTakesThePlaceOfTheRanksInk) {
    TextLabel label({.size = 30, .tint = QColor(Qt::red)});
    label.setWords("█");
    label.resize(60, 40);
    EXPECT_TRUE(isColor(strongest(paintedOver(label, Qt::white), Qt::white), Qt::red));
    label.setTint(std::nullopt);
    EXPECT_TRUE(isColor(strongest(paintedOver(label, Qt::white), Qt::white),
                        blended(Ink::primary(Scheme::light), Qt::white)));
}

TEST(TextLabelTest, WrappingOneIsAsHighAsItsLines) {
    TextLabel label({.fit = TextFit::wrap});
    label.setWords("Keep settings in sync across your machines. Stats never leave this one.");
    EXPECT_TRUE(label.hasHeightForWidth());
    EXPECT_EQ(label.heightForWidth(label.sizeHint().width()), label.sizeHint().height());
    EXPECT_GE(label.heightForWidth(120), 3 * label.sizeHint().height());
}

TEST(TextLabelTest, ElidedOneKeepsOneLine) {
    TextLabel label({.fit = TextFit::elide});
    label.setWords(std::string(200, 'W'));
    EXPECT_EQ(label.heightForWidth(50), label.sizeHint().height());
    EXPECT_LE(label.minimumSizeHint().width(), 40);
}

TEST(TextLabelTest, EqualWordsDoNotRepaint) {
    QWidget window;
    TextLabel label({}, &window);
    label.setWords("Language");
    label.resize(100, 20);
    window.show();
    PaintCounter paints(label);
    label.setWords("Language");
    EXPECT_EQ(paints.count(), 0);
    label.setWords("Sprache");
    EXPECT_GT(paints.count(), 0);
}

TEST(TextLabelTest, WordsAreNoMarkup) {
    TextLabel plain({});
    plain.setWords("<b>A &amp; B</b>");
    EXPECT_EQ(plain.text(), "<b>A &amp; B</b>");
    QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(&plain);
    EXPECT_EQ(interface->role(), QAccessible::StaticText);
}

TEST(TextLabelTest, OddWordsDoNoHarm) {
    for (const TextFit fit : {TextFit::wrap, TextFit::elide}) {
        TextLabel label({.fit = fit});
        for (const std::string& words :
             {std::string(), std::string(200, 'x'), std::string("שפה 🙂 é"), std::string("\xff\xfe")}) {
            label.setWords(words);
            label.resize(30, 30);
            EXPECT_GT(label.heightForWidth(30), 0);
            paintedOver(label, Qt::white);
        }
    }
}

}  // namespace
}  // namespace velmora
