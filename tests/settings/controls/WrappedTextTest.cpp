#include "settings/controls/WrappedText.h"

#include "look/SystemFont.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

#include <cmath>

namespace velmora {
namespace {

const QFont& font() {
    static const QFont font = SystemFont::ofPixelSize(13, QFont::Normal);
    return font;
}
double line() {
    return std::ceil(QFontMetricsF(font()).height());
}

TEST(WrappedTextTest, TextInItsNaturalWidthIsOneLine) {
    for (const QString& text :
         {QStringLiteral("Launch Velmora at login"), QStringLiteral("言語を選ぶ"), QStringLiteral("A"),
          QStringLiteral("Отправлять отчёты о сбоях"), QStringLiteral("Wi-Fi — 5 GHz…")}) {
        EXPECT_LT(WrappedText::size(text, font(), WrappedText::naturalWidth(text, font())).height(),
                  2 * line())
            << text.toStdString();
    }
}

TEST(WrappedTextTest, WordOfCombinedLettersIsOneLineInItsNaturalWidthAtEveryWeight) {
    for (const QFont::Weight weight : {QFont::Normal, QFont::Medium, QFont::DemiBold, QFont::Bold}) {
        for (int size = 9; size <= 22; ++size) {
            const QFont asked = SystemFont::ofPixelSize(size, weight);
            const QString text = QStringLiteral("Moduły");
            EXPECT_EQ(WrappedText::size(text, asked, WrappedText::naturalWidth(text, asked)).height(),
                      WrappedText::size(QString(), asked, 100).height())
                << size << " " << weight;
        }
    }
}

TEST(WrappedTextTest, NarrowerPlaceGivesMoreLinesThatFit) {
    const QString text =
        QStringLiteral("Diagnostics only — no personal data. You can turn this off anytime.");
    double previous = 0;
    for (int width = 400; width >= 80; width -= 40) {
        const QSizeF size = WrappedText::size(text, font(), width);
        EXPECT_LE(size.width(), width);
        EXPECT_GE(size.height(), previous);
        previous = size.height();
    }
    EXPECT_GT(previous, 4 * line());
}

TEST(WrappedTextTest, WordWiderThanTheLineBreaksInside) {
    const QSizeF size = WrappedText::size(QString(200, 'W'), font(), 100);
    EXPECT_LE(size.width(), 100);
    EXPECT_GT(size.height(), 10 * line());
}

TEST(WrappedTextTest, EmptyTextKeepsTheHeightOfALine) {
    EXPECT_EQ(WrappedText::size(QString(), font(), 100).height(), line());
    EXPECT_EQ(WrappedText::naturalWidth(QString(), font()), 0);
}

TEST(WrappedTextTest, LatinTextStandsAsHighAsTheLanguagesOwn) {
    SystemFont::setLanguage(AppLanguage::ja);
    const QFont japanese = SystemFont::ofPixelSize(22, QFont::Bold);
    EXPECT_EQ(WrappedText::size(QStringLiteral("CPU"), japanese, 300).height(),
              WrappedText::size(QStringLiteral("メモリ"), japanese, 300).height());
    SystemFont::setLanguage(AppLanguage::en);
}

TEST(WrappedTextTest, NoWidthDoesNoHarm) {
    for (const double width : {0.0, -5.0}) {
        EXPECT_TRUE(std::isfinite(WrappedText::size(QStringLiteral("text"), font(), width).height()));
    }
}

/// The leftmost and rightmost inked columns of a text in a box 200 wide.
QPair<int, int> inkedColumns(const QString& text, Qt::Alignment alignment) {
    QImage picture(200, 40, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    WrappedText::draw(painter, text, font(), Qt::black, QRectF(0, 0, 200, 40), alignment);
    painter.end();
    QPair<int, int> columns(200, -1);
    for (int x = 0; x < 200; ++x) {
        for (int y = 0; y < 40; ++y) {
            if (qAlpha(picture.pixel(x, y)) == 0) continue;
            columns.first = std::min(columns.first, x);
            columns.second = std::max(columns.second, x);
        }
    }
    return columns;
}

TEST(WrappedTextTest, LinesStandWhereTheAlignmentSays) {
    const auto left = inkedColumns(QStringLiteral("Velmora"), Qt::AlignLeft);
    const auto middle = inkedColumns(QStringLiteral("Velmora"), Qt::AlignHCenter);
    EXPECT_LT(left.first, 4);
    EXPECT_NEAR(middle.first, 199 - middle.second, 2);
}

TEST(WrappedTextTest, TextFromRightToLeftStandsAtTheLeftToo) {
    EXPECT_LT(inkedColumns(QStringLiteral("שלום"), Qt::AlignLeft).first, 4);
}

}  // namespace
}  // namespace velmora
