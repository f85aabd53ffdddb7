#include "panels/kit/ProcessIcons.h"

#include "panels/kit/KitFixture.h"
#include "panels/kit/Series.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QIcon>
#include <QTemporaryDir>

namespace velmora {
namespace {

/// An icon theme of its own, so that it does not depend on the machine which names there are.
class ProcessIconsTest : public testing::Test {
protected:
    ProcessIconsTest() {
        const QDir theme(m_folder.filePath(QStringLiteral("test")));
        theme.mkpath(QStringLiteral("16"));
        QFile index(theme.filePath(QStringLiteral("index.theme")));
        EXPECT_TRUE(index.open(QIODevice::WriteOnly));
        index.write("[Icon Theme]\nName=test\nDirectories=16\n[16]\nSize=16\nType=Fixed\n");
        index.close();
        write(theme.filePath(QStringLiteral("16/browser.png")), Qt::red, {16, 16});
        QIcon::setThemeSearchPaths({m_folder.path()});
        QIcon::setThemeName(QStringLiteral("test"));
        QIcon::setFallbackThemeName(QStringLiteral("test"));
    }
    ~ProcessIconsTest() override {
        QIcon::setThemeSearchPaths(m_searchPaths);
        QIcon::setThemeName(m_themeName);
        QIcon::setFallbackThemeName(m_fallbackName);
    }

    static void write(const QString& path, Qt::GlobalColor color, QSize size) {
        QImage image(size, QImage::Format_ARGB32);
        image.fill(color);
        EXPECT_TRUE(image.save(path));
    }
    void addFallbackIcon() {
        write(m_folder.filePath(QStringLiteral("test/16/application-x-executable.png")), Qt::blue, {16, 16});
    }
    QString file(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    QColor colourOf(const QPixmap& pixmap) {
        const QImage image = pixmap.toImage();
        return image.pixelColor(image.width() / 2, image.height() / 2);
    }

    FakeProcessIconSource source;
    ProcessIcons icons{source};

private:
    const QTemporaryDir m_folder;
    const QStringList m_searchPaths = QIcon::themeSearchPaths();
    const QString m_themeName = QIcon::themeName();
    const QString m_fallbackName = QIcon::fallbackThemeName();
};

TEST_F(ProcessIconsTest, NamedIconComesFromTheTheme) {
    source.icons[7] = "browser";
    const QPixmap icon = icons.processIcon(7, 1);
    EXPECT_EQ(colourOf(icon), QColor(Qt::red));
    EXPECT_EQ(icon.size(), QSize(13, 13));
}

TEST_F(ProcessIconsTest, PathIsReadAsAFile) {
    write(file("own.png"), Qt::green, {64, 64});
    source.icons[7] = file("own.png").toStdString();
    const QPixmap icon = icons.processIcon(7, 2);
    EXPECT_EQ(colourOf(icon), QColor(Qt::green));
    EXPECT_EQ(icon.size(), QSize(26, 26));
    EXPECT_EQ(icon.devicePixelRatio(), 2);
}

TEST_F(ProcessIconsTest, LongPictureKeepsItsShape) {
    write(file("long.png"), Qt::green, {64, 16});
    source.icons[7] = file("long.png").toStdString();
    EXPECT_EQ(icons.processIcon(7, 4).size(), QSize(52, 13));
}

TEST_F(ProcessIconsTest, UnknownProcessHasTheThemesProgramIcon) {
    addFallbackIcon();
    EXPECT_EQ(colourOf(icons.processIcon(7, 1)), QColor(Qt::blue));
}

TEST_F(ProcessIconsTest, NameThatTheThemeLacksHasTheProgramIcon) {
    addFallbackIcon();
    source.icons[7] = "no-such-icon";
    EXPECT_EQ(colourOf(icons.processIcon(7, 1)), QColor(Qt::blue));
}

TEST_F(ProcessIconsTest, FileThatIsNoPictureHasTheProgramIcon) {
    addFallbackIcon();
    QFile text(file("text.png"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("no picture");
    text.close();
    for (const char* path : {"text.png", "missing.png", ""}) {
        source.icons[7] = file(path).toStdString();
        EXPECT_EQ(colourOf(icons.processIcon(7, 1)), QColor(Qt::blue)) << path;
    }
}

TEST_F(ProcessIconsTest, DeviceIsNotRead) {
    addFallbackIcon();
    source.icons[7] = "/dev/zero";
    EXPECT_EQ(colourOf(icons.processIcon(7, 1)), QColor(Qt::blue));
}

TEST_F(ProcessIconsTest, WithoutAnyThemeOurOwnSymbolStandsIn) {
    const QPixmap icon = icons.processIcon(7, 2);
    EXPECT_EQ(icon.size(), QSize(26, 26));
    EXPECT_FALSE(isEmpty(icon.toImage()));
}

TEST_F(ProcessIconsTest, ProcessesOfOneProgramShareAPicture) {
    source.icons = {{1, "browser"}, {2, "browser"}};
    EXPECT_EQ(icons.processIcon(1, 1).cacheKey(), icons.processIcon(2, 1).cacheKey());
    EXPECT_EQ(icons.keptCount(), 1);
}

TEST_F(ProcessIconsTest, NumberOfKeptPicturesIsLimited) {
    for (std::int32_t pid = 0; pid < 1000; ++pid) {
        source.icons[pid] = "name" + std::string(static_cast<std::size_t>(pid % 300 + 1), 'x');
        EXPECT_FALSE(icons.processIcon(pid, 1).isNull());
        EXPECT_LE(icons.keptCount(), ProcessIcons::kMostKept);
    }
}

TEST_F(ProcessIconsTest, BadRatioIsHeld) {
    for (const double ratio : {0.0, -3.0, std::numeric_limits<double>::quiet_NaN(), 1e9}) {
        EXPECT_FALSE(icons.processIcon(7, ratio).isNull());
    }
}

}  // namespace
}  // namespace velmora
