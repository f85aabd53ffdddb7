#include "panels/kit/PanelText.h"

#include "look/PinnedFont.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include <string>

namespace velmora {
namespace {

constexpr PanelFont kPlain = {11};
constexpr PanelFont kMono = {11, QFont::Medium, DigitWidth::monospaced};

const std::string kHebrew = "\u05de\u05e2\u05e8\u05db\u05ea \u05d4\u05e4\u05e2\u05dc\u05d4";
const std::string kFamily = "\U0001F468\u200D\U0001F469\u200D\U0001F467";

TEST(PanelText, MonospacedDigitsAllHaveOneWidth) {
    for (const QString& family : familiesToTry()) {
        const PinnedFont pinned(family);
        const double width = PanelText::width(kMono, QStringLiteral("0"));
        for (char16_t digit = u'1'; digit <= u'9'; ++digit) {
            EXPECT_DOUBLE_EQ(PanelText::width(kMono, QString(QChar(digit))), width);
        }
        EXPECT_DOUBLE_EQ(PanelText::width(kMono, QStringLiteral("11.1%")),
                         PanelText::width(kMono, QStringLiteral("88.8%")));
    }
}

TEST(PanelText, EmptyTextHasNoWidth) {
    EXPECT_EQ(PanelText::width(kPlain, {}), 0);
    EXPECT_EQ(PanelText::width(kMono, {}), 0);
}

TEST(PanelText, LineIsAsHighForEveryText) {
    EXPECT_GE(PanelText::lineHeight(kPlain), 11);
    EXPECT_LE(PanelText::lineHeight(kPlain), 20);
}

TEST(PanelText, LongTextIsCutAtItsEnd) {
    const QString name = QString(200, u'x');
    const QString cut = PanelText::elided(kPlain, name, 120);
    EXPECT_TRUE(cut.startsWith(u'x'));
    EXPECT_TRUE(cut.endsWith(u'\u2026'));
    EXPECT_LE(PanelText::width(kPlain, cut), 120.1);
}

TEST(PanelText, TextThatFitsIsNotCut) {
    const QString text = QStringLiteral("firefox");
    EXPECT_EQ(PanelText::elided(kPlain, text, PanelText::width(kPlain, text)), text);
}

TEST(PanelText, CutOfMonospacedDigitsFitsToo) {
    const QString text = QString(60, u'1');
    EXPECT_LE(PanelText::width(kMono, PanelText::elided(kMono, text, 80)), 80.1);
}

TEST(PanelText, WithoutRoomNothingIsLeft) {
    EXPECT_TRUE(PanelText::elided(kPlain, QStringLiteral("firefox"), 0).isEmpty());
    EXPECT_TRUE(PanelText::elided(kPlain, QStringLiteral("firefox"), -3).isEmpty());
}

TEST(PanelText, FittingShrinksOnlyWhatIsTooWide) {
    EXPECT_EQ(PanelText::fitting(kMono, QStringLiteral("1"), 44).size, 11);
    const PanelFont fitted = PanelText::fitting(kMono, QStringLiteral("4294967.3G"), 50);
    EXPECT_LT(fitted.size, 11);
    EXPECT_LE(PanelText::width(fitted, QStringLiteral("4294967.3G")), 50);
    EXPECT_EQ(PanelText::fitting(kMono, QString(200, u'8'), 44).size, PanelText::kSmallest);
}

TEST(PanelText, LineEndsAndControlCharactersBecomeBlanks) {
    EXPECT_EQ(PanelText::plain("a\nb\tc\x01"
                               "d\u2028e"),
              QStringLiteral("a b c d e"));
}

TEST(PanelText, MarksThatTurnTheDirectionGo) {
    EXPECT_EQ(PanelText::plain("evil\u202Egpj.exe\u2066x\u2069"), QStringLiteral("evilgpj.exex"));
}

TEST(PanelText, BrokenBytesAreReplaced) {
    EXPECT_EQ(PanelText::plain("a\xFF"
                               "b"),
              QStringLiteral("a\uFFFDb"));
    EXPECT_EQ(PanelText::plain({}), QString());
}

TEST(PanelText, EndlessTextEndsBetweenCharacters) {
    std::string faces;
    for (int count = 0; count < 4000; ++count) faces += "\U0001F600";
    const QString shortened = PanelText::plain("x" + faces);
    EXPECT_LE(shortened.size(), 500);
    EXPECT_TRUE(shortened.back().isLowSurrogate());
}

/// The columns of the picture that have ink.
std::pair<int, int> inkedColumns(const QImage& image) {
    int first = image.width();
    int last = -1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) < 40) continue;
            first = std::min(first, x);
            last = std::max(last, x);
        }
    }
    return {first, last};
}

QImage drawn(const PanelFont& font, const std::string& text, const QRectF& box, PanelText::Side side) {
    QImage image(200, 24, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    PanelText::draw(painter, font, PanelText::plain(text), box, side, Qt::black);
    return image;
}

TEST(PanelText, NamesOfAllKindsStayInTheirBox) {
    const std::string kinds[] = {
        std::string(200, 'W'), kHebrew + kHebrew + kHebrew + kHebrew + kHebrew,
        kFamily + kFamily + kFamily + kFamily + kFamily + kFamily + kFamily + kFamily + kFamily + kFamily,
        "a\u0301\u0302\u0303\u0304", std::string(400, '1')};
    for (const std::string& text : kinds) {
        for (const PanelFont& font : {kPlain, kMono}) {
            const auto [first, last] =
                inkedColumns(drawn(font, text, QRectF(40, 0, 100, 24), PanelText::Side::leading));
            EXPECT_GE(first, 38) << text;
            EXPECT_LE(last, 141) << text;
        }
    }
}

TEST(PanelText, SidesAreWhereTheyAreCalled) {
    const QRectF box(40, 0, 120, 24);
    const auto leading = inkedColumns(drawn(kMono, "88", box, PanelText::Side::leading));
    const auto middle = inkedColumns(drawn(kMono, "88", box, PanelText::Side::middle));
    const auto trailing = inkedColumns(drawn(kMono, "88", box, PanelText::Side::trailing));
    EXPECT_NEAR(leading.first, 40, 2);
    EXPECT_NEAR((middle.first + middle.second) / 2.0, 100, 1.5);
    EXPECT_NEAR(trailing.second, 159, 2);
}

TEST(PanelText, DigitsAmongRightToLeftLettersAreLeftToTheirOrder) {
    const QString mixed = PanelText::plain(kHebrew + " 11");
    PanelFont proportional = kMono;
    proportional.digits = DigitWidth::proportional;
    EXPECT_DOUBLE_EQ(PanelText::width(kMono, mixed), PanelText::width(proportional, mixed));
}

}  // namespace
}  // namespace velmora
