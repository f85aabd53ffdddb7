#include "platform/qt/desktop/IconThemeName.h"

#include "platform/qt/services/RecordingBus.h"

#include <gtest/gtest.h>

#include <QDBusVariant>
#include <QDir>
#include <QFile>
#include <QIcon>
#include <QTemporaryDir>

#include <optional>
#include <vector>

namespace velmora {
namespace {

using Sources = std::vector<IconThemeSource>;

TEST(IconThemeSources, ThoseOfTheDesktopAreClosest) {
    EXPECT_EQ(iconThemeSources("LXQt").front(), IconThemeSource::lxqtFile);
    EXPECT_EQ(iconThemeSources("XFCE"),
              (Sources{IconThemeSource::xSettings, IconThemeSource::xfconf, IconThemeSource::gtkFile}));
    for (const char* others : {"GNOME", "ubuntu:GNOME", "MATE", "X-Cinnamon", "sway", ""}) {
        EXPECT_EQ(iconThemeSources(others),
                  (Sources{IconThemeSource::xSettings, IconThemeSource::portal, IconThemeSource::gtkFile}))
            << others;
    }
}

TEST(IconThemeSources, PlasmaNeedsNone) {
    EXPECT_EQ(iconThemeSources("KDE"), Sources());
    EXPECT_EQ(iconThemeSources("plasma:KDE"), Sources());
    EXPECT_NE(iconThemeSources("NOTKDE"), Sources());
}

class IconThemeNameTest : public ::testing::Test {
protected:
    void write(const QString& name, const QByteArray& text) const {
        const QString path = folder.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    IconThemeName::Places places(const std::string& desktops) const {
        return {
            desktops,
            {folder.filePath(QStringLiteral("user")), folder.filePath(QStringLiteral("system"))},
            [this](std::string_view name) { return name == "Net/IconThemeName" ? published : std::nullopt; }};
    }
    /// Starts the questions; the answer comes to `found`.
    std::unique_ptr<IconThemeName> ask(const std::string& desktops, const SessionBus& bus) {
        return std::make_unique<IconThemeName>(
            bus, places(desktops), [this](const QString& name) { return !missing.contains(name); },
            [this](const QString& name) {
                found = name;
                ++foundCount;
            });
    }
    std::optional<QString> askWithoutABus(const std::string& desktops) {
        ask(desktops, SessionBus(QStringLiteral("unix:path=/nonexistent/bus")));
        return found;
    }

    QTemporaryDir folder;
    std::optional<std::string> published;
    QStringList missing;
    std::optional<QString> found;
    int foundCount = 0;
};

TEST_F(IconThemeNameTest, PublishedSettingIsFoundAtOnce) {
    published = "Papirus";
    for (const char* desktop : {"GNOME", "XFCE", "MATE", "X-Cinnamon", ""})
        EXPECT_EQ(askWithoutABus(desktop), QStringLiteral("Papirus")) << desktop;
}

TEST_F(IconThemeNameTest, PlasmaIsNotAsked) {
    published = "Papirus";
    EXPECT_EQ(askWithoutABus("KDE"), QString());
}

TEST_F(IconThemeNameTest, FileOfLxqtComesBeforeWhatIsPublished) {
    published = "Papirus";
    write(QStringLiteral("user/lxqt/lxqt.conf"), "[General]\nicon_theme=oxygen\n");
    EXPECT_EQ(askWithoutABus("LXQt"), QStringLiteral("oxygen"));
}

TEST_F(IconThemeNameTest, UsersFileComesBeforeTheSystems) {
    write(QStringLiteral("system/gtk-3.0/settings.ini"), "[Settings]\ngtk-icon-theme-name=Adwaita\n");
    EXPECT_EQ(askWithoutABus("sway"), QStringLiteral("Adwaita"));
    write(QStringLiteral("user/gtk-3.0/settings.ini"), "[Settings]\ngtk-icon-theme-name = Papirus\n");
    EXPECT_EQ(askWithoutABus("sway"), QStringLiteral("Papirus"));
}

TEST_F(IconThemeNameTest, QuotesInAFileAreNoPartOfTheName) {
    write(QStringLiteral("user/gtk-3.0/settings.ini"), "[Settings]\ngtk-icon-theme-name=\"Papirus\"\n");
    EXPECT_EQ(askWithoutABus("sway"), QStringLiteral("Papirus"));
}

TEST_F(IconThemeNameTest, NameThatWillNotDoLeavesTheNextSource) {
    published = "Gone";
    missing = {QStringLiteral("Gone")};
    write(QStringLiteral("user/gtk-3.0/settings.ini"), "[Settings]\ngtk-icon-theme-name=Papirus\n");
    EXPECT_EQ(askWithoutABus("GNOME"), QStringLiteral("Papirus"));
}

TEST_F(IconThemeNameTest, WithoutAnySourceTheNameIsEmpty) {
    published = "";
    write(QStringLiteral("user/gtk-3.0/settings.ini/a-folder"), "");
    EXPECT_EQ(askWithoutABus("GNOME"), QString());
    EXPECT_EQ(foundCount, 1);
}

class IconThemeNameOnABus : public IconThemeNameTest {
protected:
    void SetUp() override {
        write(QStringLiteral("user/gtk-3.0/settings.ini"), "[Settings]\ngtk-icon-theme-name=FromFile\n");
    }
    /// Answers every question with the value, wrapped as often as the portal's first version does.
    void answerWith(const QVariant& value) {
        bus.answer = [value](const QDBusMessage& question) { return question.createReply(value); };
    }
    QString nameOn(const char* desktop) {
        const auto question = ask(desktop, bus.bus.sessionBus());
        return waitUntil([this] { return found.has_value(); }) ? *found : QStringLiteral("no answer");
    }

    RecordingBus bus;
};

TEST_F(IconThemeNameOnABus, PortalTellsGnomesSetting) {
    bus.own("org.freedesktop.portal.Desktop");
    answerWith(QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(QStringLiteral("Yaru"))))));
    EXPECT_EQ(nameOn("ubuntu:GNOME"), QStringLiteral("Yaru"));
    ASSERT_EQ(bus.calls.size(), 1u);
    EXPECT_EQ(bus.calls[0].member(), QStringLiteral("Read"));
    EXPECT_EQ(bus.calls[0].arguments(),
              (QVariantList{QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("icon-theme")}));
}

TEST_F(IconThemeNameOnABus, XfconfTellsXfces) {
    bus.own("org.xfce.Xfconf");
    answerWith(QVariant::fromValue(QDBusVariant(QStringLiteral("elementary-xfce"))));
    EXPECT_EQ(nameOn("XFCE"), QStringLiteral("elementary-xfce"));
    ASSERT_EQ(bus.calls.size(), 1u);
    EXPECT_EQ(bus.calls[0].member(), QStringLiteral("GetProperty"));
    EXPECT_EQ(bus.calls[0].arguments(),
              (QVariantList{QStringLiteral("xsettings"), QStringLiteral("/Net/IconThemeName")}));
}

TEST_F(IconThemeNameOnABus, ServiceThatIsNotThereLeavesTheFile) {
    EXPECT_EQ(nameOn("GNOME"), QStringLiteral("FromFile"));
    EXPECT_EQ(foundCount, 1);
}

TEST_F(IconThemeNameOnABus, AnswerOfAnotherTypeLeavesTheFile) {
    bus.own("org.freedesktop.portal.Desktop");
    answerWith(QVariant::fromValue(QDBusVariant(42)));
    EXPECT_EQ(nameOn("GNOME"), QStringLiteral("FromFile"));
    found.reset();
    answerWith(QStringLiteral("not wrapped"));
    EXPECT_EQ(nameOn("GNOME"), QStringLiteral("FromFile"));
}

TEST_F(IconThemeNameOnABus, QuestionThatIsDroppedFindsNothing) {
    bus.own("org.freedesktop.portal.Desktop");
    ask("GNOME", bus.bus.sessionBus());
    ASSERT_TRUE(waitUntil([this] { return !bus.calls.empty(); }));
    EXPECT_EQ(foundCount, 0);
}

/// Gives the toolkit's own settings back as they were.
class UseIconTheme : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* name : {"Papirus", "Adwaita"}) {
            QDir(folder.path()).mkpath(QLatin1String(name));
            QFile index(folder.filePath(QLatin1String(name) + QStringLiteral("/index.theme")));
            ASSERT_TRUE(index.open(QIODevice::WriteOnly));
            index.write("[Icon Theme]\nName=x\nDirectories=16x16\n");
        }
        QIcon::setThemeSearchPaths({QStringLiteral("/nonexistent"), folder.path()});
    }
    void TearDown() override {
        QIcon::setThemeSearchPaths(m_paths);
        QIcon::setThemeName(m_name);
        QIcon::setFallbackThemeName(m_fallback);
    }

    QTemporaryDir folder;

private:
    QStringList m_paths = QIcon::themeSearchPaths();
    QString m_name = QIcon::themeName();
    QString m_fallback = QIcon::fallbackThemeName();
};

TEST_F(UseIconTheme, InstalledThemeHasAnIndex) {
    EXPECT_TRUE(isIconThemeInstalled(QStringLiteral("Papirus")));
    for (const char* name : {"", "Gone", ".", "..", "../Papirus", "/Papirus", "Papirus/"})
        EXPECT_FALSE(isIconThemeInstalled(QLatin1String(name))) << name;
}

TEST_F(UseIconTheme, FoundThemeIsUsed) {
    useIconTheme(QStringLiteral("Papirus"));
    EXPECT_EQ(QIcon::themeName(), QStringLiteral("Papirus"));
}

TEST_F(UseIconTheme, WithoutANameTheToolkitsGuessStays) {
    QIcon::setThemeName(QStringLiteral("Adwaita"));
    useIconTheme(QString());
    EXPECT_EQ(QIcon::themeName(), QStringLiteral("Adwaita"));
}

TEST_F(UseIconTheme, GuessThatIsNotInstalledGivesWayToTheCommonTheme) {
    QIcon::setThemeName(QStringLiteral("Gone"));
    useIconTheme(QString());
    EXPECT_EQ(QIcon::themeName(), QStringLiteral("hicolor"));
}

}  // namespace
}  // namespace velmora
