#include "platform/qt/desktop/DesktopColors.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "platform/qt/desktop/PortalScheme.h"
#include "platform/qt/services/FakeDesktopServices.h"
#include "platform/qt/session/PrivateBus.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPalette>
#include <QTemporaryDir>

namespace velmora {
namespace {

using Desktop = Session::Desktop;

TEST(PortalScheme, NumberIsReadThroughAnyWrapping) {
    const auto wrapped = [](uint number) {
        return QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(number))));
    };
    EXPECT_EQ(PortalScheme::darkFromAnswer(wrapped(1)), true);
    EXPECT_EQ(PortalScheme::darkFromAnswer(wrapped(2)), false);
    EXPECT_EQ(PortalScheme::darkFromAnswer(wrapped(0)), std::nullopt);
    EXPECT_EQ(PortalScheme::darkFromAnswer(wrapped(7)), std::nullopt);
    EXPECT_EQ(PortalScheme::darkFromAnswer(QVariant(1U)), true);
    EXPECT_EQ(PortalScheme::darkFromAnswer(QStringLiteral("dark")), std::nullopt);
    EXPECT_EQ(PortalScheme::darkFromAnswer({}), std::nullopt);
}

class DesktopColorsTest : public testing::Test {
protected:
    void start(Desktop desktop) {
        m_colors.emplace(m_loop, m_sessionBus, Session{Session::WindowSystem::offscreen, desktop},
                         PlasmaFolders{m_folder.path(), {m_folder.path()}});
        m_subscription = m_colors->changed.subscribe([this] { ++m_changes; });
    }
    const BarSurroundings& found() const { return m_colors->surroundings(); }
    void write(const QString& name, const QByteArray& text) {
        QFile file(m_folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    PrivateBus m_bus;
    SessionBus m_sessionBus = m_bus.sessionBus();
    FakeClock m_clock;
    FakeRunLoop m_loop{m_clock};
    QTemporaryDir m_folder;
    std::optional<DesktopColors> m_colors;
    int m_changes = 0;
    Subscription m_subscription;
};

TEST_F(DesktopColorsTest, PortalsSchemeIsReadAndFollowed) {
    FakePortal portal(m_sessionBus, 1);
    start(Desktop::other);
    ASSERT_TRUE(waitUntil([&] { return found().prefersDark == true; }));
    portal.setScheme(2);
    ASSERT_TRUE(waitUntil([&] { return found().prefersDark == false; }));
    portal.setScheme(0);
    ASSERT_TRUE(waitUntil([&] { return !found().prefersDark.has_value(); }));
    EXPECT_EQ(m_changes, 3);
}

TEST_F(DesktopColorsTest, OtherSettingsOfThePortalAreNotTakenForTheScheme) {
    FakePortal portal(m_sessionBus, 2);
    start(Desktop::other);
    ASSERT_TRUE(waitUntil([&] { return found().prefersDark == false; }));
    portal.announce(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("contrast"), 1);
    portal.announce(QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("color-scheme"), 1);
    portal.setScheme(0);
    ASSERT_TRUE(waitUntil([&] { return !found().prefersDark.has_value(); }));
    EXPECT_EQ(m_changes, 2) << "light, and then nothing";
}

TEST_F(DesktopColorsTest, PaletteWithTheSameWindowsIsNoChange) {
    const QPalette before = QApplication::palette();
    start(Desktop::other);
    QPalette other = before;
    other.setColor(QPalette::Highlight, QColor(1, 2, 3));
    QApplication::setPalette(other);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_changes, 0);
    other.setColor(QPalette::Window, QColor(1, 2, 3));
    QApplication::setPalette(other);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_changes, 1);
    QApplication::setPalette(before);
}

TEST_F(DesktopColorsTest, WithoutAPortalThePaletteIsFollowed) {
    const QPalette before = QApplication::palette();
    start(Desktop::other);
    QApplication::setPalette(QPalette(Qt::black));
    ASSERT_TRUE(waitUntil([&] { return found().paletteLightness < 0.1; }));
    QApplication::setPalette(QPalette(Qt::white));
    ASSERT_TRUE(waitUntil([&] { return found().paletteLightness > 0.9; }));
    EXPECT_EQ(found().prefersDark, std::nullopt);
    QApplication::setPalette(before);
}

TEST_F(DesktopColorsTest, XfcesPanelIsReadAndFollowed) {
    FakeXfconf xfconf(m_sessionBus, {{"/panels/panel-1/background-style", 1U},
                                     {"/panels/panel-1/background-rgba", QVariantList{0.0, 0.0, 0.0, 1.0}}});
    start(Desktop::xfce);
    ASSERT_TRUE(waitUntil([&] { return found().xfcePanel == 0.0; }));
    EXPECT_EQ(found().xfceDarkMode, std::nullopt);
    xfconf.set(QStringLiteral("/panels/dark-mode"), true);
    ASSERT_TRUE(waitUntil([&] { return found().xfceDarkMode == true; }));
    xfconf.set(QStringLiteral("/panels/panel-1/background-style"), 0U);
    ASSERT_TRUE(waitUntil([&] { return !found().xfcePanel.has_value(); }));
}

TEST_F(DesktopColorsTest, PlasmasFilesAreReadAndFollowed) {
    write("kdeglobals", "[Colors:Window]\nBackgroundNormal=0,0,0\n");
    start(Desktop::plasma);
    EXPECT_EQ(found().plasmaPanel, 0.0);
    // As these programs do it: a new file takes the old one's name.
    write("kdeglobals.new", "[Colors:Window]\nBackgroundNormal=255,255,255\n");
    ASSERT_EQ(std::rename(m_folder.filePath("kdeglobals.new").toUtf8().constData(),
                          m_folder.filePath("kdeglobals").toUtf8().constData()),
              0);
    ASSERT_TRUE(waitUntil([&] { return found().plasmaPanel.value_or(0) > 0.9; }));
    write("kdeglobals.new", "[Colors:Window]\nBackgroundNormal=0,0,0\n");
    ASSERT_EQ(std::rename(m_folder.filePath("kdeglobals.new").toUtf8().constData(),
                          m_folder.filePath("kdeglobals").toUtf8().constData()),
              0);
    EXPECT_TRUE(waitUntil([&] { return found().plasmaPanel.value_or(1) < 0.1; }));
}

TEST_F(DesktopColorsTest, PlasmasFileThatIsMadeLaterIsFollowedFromThenOn) {
    // There is no plasmarc until the user chooses a theme for the panels; that choice was not noticed.
    write("kdeglobals", "[Colors:Window]\nBackgroundNormal=255,255,255\n");
    QDir(m_folder.path()).mkpath(QStringLiteral("plasma/desktoptheme/night"));
    write("plasma/desktoptheme/night/colors", "[Colors:Window]\nBackgroundNormal=0,0,0\n");
    start(Desktop::plasma);
    ASSERT_GT(found().plasmaPanel.value_or(0), 0.9);
    write("other.new", "a file that has nothing to do with it");
    write("plasmarc.new", "[Theme]\nname=night\n");
    ASSERT_EQ(std::rename(m_folder.filePath("plasmarc.new").toUtf8().constData(),
                          m_folder.filePath("plasmarc").toUtf8().constData()),
              0);
    ASSERT_TRUE(waitUntil([&] { return found().plasmaPanel.value_or(1) < 0.1; }));
    write("plasmarc.new", "[Theme]\nname=default\n");
    ASSERT_EQ(std::rename(m_folder.filePath("plasmarc.new").toUtf8().constData(),
                          m_folder.filePath("plasmarc").toUtf8().constData()),
              0);
    EXPECT_TRUE(waitUntil([&] { return found().plasmaPanel.value_or(0) > 0.9; }));
}

TEST_F(DesktopColorsTest, OtherDesktopsFilesDoNotCount) {
    write("kdeglobals", "[Colors:Window]\nBackgroundNormal=0,0,0\n");
    start(Desktop::other);
    EXPECT_EQ(found().plasmaPanel, std::nullopt);
}

TEST_F(DesktopColorsTest, NothingRunsAtRest) {
    start(Desktop::xfce);
    EXPECT_EQ(m_loop.timerCount(), 0U);
}

}  // namespace
}  // namespace velmora
