#include "look/SystemFont.h"

#include "look/PinnedFont.h"

#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QImage>
#include <QPainter>

#include <utility>

namespace velmora {
namespace {

TEST(SystemFont, PreferredFamilyStandsFirstWhereItIsInstalled) {
    const QStringList families = SystemFont::families();
    ASSERT_FALSE(families.isEmpty());
    EXPECT_EQ(families.front() == QStringLiteral("Inter"), QFontDatabase::hasFamily(QStringLiteral("Inter")));
}

TEST(SystemFont, DesktopsGeneralFontIsAmongTheFamilies) {
    const QString general = QFontDatabase::systemFont(QFontDatabase::GeneralFont).families().value(0);
    EXPECT_TRUE(SystemFont::families().contains(general));
}

TEST(SystemFont, PinningReplacesTheFamiliesAndTellsKeepersOfWidths) {
    const unsigned before = SystemFont::generation();
    {
        const PinnedFont pinned(QStringLiteral("DejaVu Sans"));
        EXPECT_EQ(SystemFont::families(), QStringList{QStringLiteral("DejaVu Sans")});
        EXPECT_NE(SystemFont::generation(), before);
    }
    EXPECT_NE(SystemFont::families(), QStringList{});
}

/// The texts of another language, and those of English again.
class TextsIn {
public:
    explicit TextsIn(AppLanguage language) { SystemFont::setLanguage(language); }
    TextsIn(const TextsIn&) = delete;
    TextsIn& operator=(const TextsIn&) = delete;
    ~TextsIn() { SystemFont::setLanguage(AppLanguage::en); }
};

TEST(SystemFont, ChineseJapaneseAndKoreanHaveTheShapesOfTheirOwnRegion) {
    const std::pair<AppLanguage, const char*> regions[] = {{AppLanguage::ja, "Noto Sans CJK JP"},
                                                           {AppLanguage::ko, "Noto Sans CJK KR"},
                                                           {AppLanguage::zhHans, "Noto Sans CJK SC"},
                                                           {AppLanguage::zhHant, "Noto Sans CJK TC"}};
    for (const auto& [language, family] : regions) {
        ASSERT_TRUE(QFontDatabase::hasFamily(QLatin1String(family))) << "the tests need this font";
        const TextsIn texts(language);
        EXPECT_EQ(SystemFont::families().value(1), QLatin1String(family)) << "after the Latin letters' own";
    }
}

/// A character that the Chinese regions and Japan write differently, as it is drawn now.
QImage pictureOfBone() {
    QImage picture(64, 64, QImage::Format_ARGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setFont(SystemFont::ofPixelSize(48, QFont::Normal));
    painter.drawText(QPoint(8, 50), QStringLiteral("骨"));
    return picture;
}

TEST(SystemFont, CharacterOfTwoRegionsIsDrawnInTheShapeOfTheLanguage) {
    const auto pictureIn = [](AppLanguage language) {
        const TextsIn texts(language);
        return pictureOfBone();
    };
    EXPECT_NE(pictureIn(AppLanguage::zhHans), pictureIn(AppLanguage::ja));
    EXPECT_EQ(pictureIn(AppLanguage::ja), pictureIn(AppLanguage::ja));
}

TEST(SystemFont, LanguagesOfOneShapeNeedNoFamilyOfTheirOwn) {
    const QStringList english = SystemFont::families();
    const TextsIn texts(AppLanguage::ru);
    EXPECT_EQ(SystemFont::families(), english);
}

TEST(SystemFont, AnotherLanguageTellsKeepersOfFontsAndTheSameOneDoesNot) {
    const unsigned before = SystemFont::generation();
    const TextsIn texts(AppLanguage::ja);
    const unsigned changed = SystemFont::generation();
    EXPECT_NE(changed, before);
    SystemFont::setLanguage(AppLanguage::ja);
    EXPECT_EQ(SystemFont::generation(), changed);
}

TEST(SystemFont, PinnedFamiliesStayWhateverTheLanguage) {
    const PinnedFont pinned(QStringLiteral("DejaVu Sans"));
    const TextsIn texts(AppLanguage::ja);
    EXPECT_EQ(SystemFont::families(), QStringList{QStringLiteral("DejaVu Sans")});
}

TEST(SystemFont, LineHasRoomForTheLanguagesLettersWhateverItHolds) {
    const SystemFont::LineExtent latin = SystemFont::lineExtent(SystemFont::ofPixelSize(22, QFont::Bold));
    const TextsIn texts(AppLanguage::ja);
    const QFont font = SystemFont::ofPixelSize(22, QFont::Bold);
    const SystemFont::LineExtent both = SystemFont::lineExtent(font);
    EXPECT_GT(both.height(), latin.height());
    EXPECT_GE(both.ascent, latin.ascent);
    EXPECT_GE(both.descent, latin.descent);
}

TEST(SystemFont, FontHasNoColourFringes) {
    const QFont font = SystemFont::ofPixelSize(12, QFont::Bold);
    EXPECT_TRUE(font.styleStrategy() & QFont::NoSubpixelAntialias);
    EXPECT_EQ(font.pixelSize(), 12);
    EXPECT_EQ(font.weight(), QFont::Bold);
}

}  // namespace
}  // namespace velmora
