#include "look/SystemFont.h"

#include "look/PinnedFont.h"

#include <gtest/gtest.h>

#include <QFontDatabase>

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

TEST(SystemFont, FontHasNoColourFringes) {
    const QFont font = SystemFont::ofPixelSize(12, QFont::Bold);
    EXPECT_TRUE(font.styleStrategy() & QFont::NoSubpixelAntialias);
    EXPECT_EQ(font.pixelSize(), 12);
    EXPECT_EQ(font.weight(), QFont::Bold);
}

}  // namespace
}  // namespace velmora
