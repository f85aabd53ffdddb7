#include "platform/qt/desktop/PlasmaPanelColors.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace velmora {
namespace {

class PlasmaPanelColors : public testing::Test {
protected:
    void write(const QString& path, const QByteArray& text) {
        const QString full = m_folder.filePath(path);
        ASSERT_TRUE(QDir().mkpath(QFileInfo(full).path()));
        QFile file(full);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    std::optional<double> lightness() const {
        return plasmaPanelLightness(
            {m_folder.filePath("config"), {m_folder.filePath("home"), m_folder.filePath("system")}});
    }

    QTemporaryDir m_folder;
};

constexpr const char* kDarkColors = "[Colors:Window]\nBackgroundNormal=0,0,0\n";
constexpr const char* kLightColors = "[Colors:Window]\nBackgroundNormal=255,255,255\n";

TEST_F(PlasmaPanelColors, ThemeWithColorsDecides) {
    write("config/plasmarc", "[Theme]\nname=breeze-dark\n");
    write("config/kdeglobals", kLightColors);
    write("system/plasma/desktoptheme/breeze-dark/colors", kDarkColors);
    EXPECT_EQ(lightness(), 0.0);
}

TEST_F(PlasmaPanelColors, ThemeWithoutColorsFollowsTheScheme) {
    write("config/plasmarc", "[Theme]\nname=default\n");
    write("config/kdeglobals", kDarkColors);
    write("system/plasma/desktoptheme/default/metadata.json", "{}");
    EXPECT_EQ(lightness(), 0.0);
}

TEST_F(PlasmaPanelColors, ThemeThatWasNeverChosenIsTheDefault) {
    write("config/kdeglobals", kDarkColors);
    write("system/plasma/desktoptheme/default/colors", kLightColors);
    EXPECT_DOUBLE_EQ(lightness().value_or(-1), 1.0);
}

TEST_F(PlasmaPanelColors, OwnThemeCoversThatOfTheSystem) {
    write("config/plasmarc", "[Theme]\nname=mine\n");
    write("home/plasma/desktoptheme/mine/colors", kDarkColors);
    write("system/plasma/desktoptheme/mine/colors", kLightColors);
    EXPECT_EQ(lightness(), 0.0);
}

TEST_F(PlasmaPanelColors, NothingIsSaidWithoutFiles) {
    EXPECT_EQ(lightness(), std::nullopt);
}

}  // namespace
}  // namespace velmora
