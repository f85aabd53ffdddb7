#include "RunningProgram.h"
#include "ScreenPicture.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QRegularExpression>

#include <optional>

namespace velmora {
namespace {

constexpr int kSecondMs = 1000;
const QColor kAccent(10, 132, 255);
const QColor kRed(0xFF, 0x3B, 0x30);
/// The columns of the window on the modules.
const QRect kPage(418, 0, 522, 560);

/// The real program with its settings window, operated by mouse and keyboard from outside.
class SettingsTest : public testing::Test {
protected:
    SettingsTest() {
        storeDefault(session, "onboardingCompleted", "true");
        storeDefault(session, "sampleInterval", "0.5");
        startWindowManager(session);
    }

    /// Starts the program and waits for its strip.
    void start(const QProcessEnvironment& extra = {}) {
        program.emplace(session, QStringList(), extra);
        ASSERT_TRUE(waitUntil([this] { return !dockWindow(session).id.isEmpty(); }));
    }
    /// Starts the program and shows the settings as a desktop asks for them.
    void open(const QProcessEnvironment& extra = {}) {
        start(extra);
        ASSERT_TRUE(waitUntil([this] { return activate(); }));
        ASSERT_TRUE(waitUntil([this] { return hasFocus(); })) << "the window has the keyboard";
    }
    bool activate() const {
        const QString name = "settings-test";
        QDBusMessage answer;
        {
            QDBusConnection bus = QDBusConnection::connectToBus(session.busAddress(), name);
            QDBusMessage call = QDBusMessage::createMethodCall("com.torvane.Velmora", "/com/torvane/Velmora",
                                                               "org.freedesktop.Application", "Activate");
            call.setArguments({QVariantMap()});
            answer = bus.call(call);
        }
        QDBusConnection::disconnectFromBus(name);
        return answer.type() == QDBusMessage::ReplyMessage;
    }
    /// The program's ordinary window; without an id while none is shown.
    ShownWindow window() const {
        const QString list =
            QString::fromUtf8(session.output("xprop", {"-root", "-notype", "_NET_CLIENT_LIST"}).trimmed());
        for (const QString& word : list.section('#', 1).split(',')) {
            const QString id = word.trimmed();
            const QByteArray kind = session.output("xprop", {"-id", id, "_NET_WM_WINDOW_TYPE", "WM_CLASS"});
            if (kind.contains("_DOCK") || !kind.toLower().contains("velmora")) continue;
            const QString shape = QString::fromUtf8(session.output("xwininfo", {"-id", id}));
            if (!shape.contains("IsViewable")) continue;
            const auto number = [&shape](const QString& name) {
                const QRegularExpression line(name + R"(:\s+(-?\d+))");
                return line.match(shape).captured(1).toInt();
            };
            return {id, QRect(number("Absolute upper-left X"), number("Absolute upper-left Y"),
                              number("Width"), number("Height"))};
        }
        return {};
    }
    bool hasFocus() const {
        const ShownWindow shown = window();
        return !shown.id.isEmpty() &&
               session.output("xprop", {"-id", shown.id, "_NET_WM_STATE"}).contains("FOCUSED");
    }
    QString title() const {
        const QString line = QString::fromUtf8(session.output("xprop", {"-id", window().id, "_NET_WM_NAME"}));
        return line.section('"', 1, 1);
    }

    /// The middle of the first shape of a colour in a part of the window, top first.
    std::optional<QPoint> find(const QColor& color, const QRect& part) const {
        const QRect place = window().geometry;
        const QImage picture = screenPicture(session).copy(place);
        QRect shape;
        for (int y = part.top(); y <= part.bottom() && y < picture.height(); ++y) {
            const bool began = !shape.isNull();
            bool inRow = false;
            for (int x = part.left(); x <= part.right() && x < picture.width(); ++x) {
                if (!isClose(picture.pixelColor(x, y), color)) continue;
                // The shape that began first is the one.
                if (began && (x < shape.left() - kGap || x > shape.right() + kGap)) continue;
                if (!began && !shape.isNull() && x > shape.right() + kGap) continue;
                shape |= QRect(x, y, 1, 1);
                inRow = true;
            }
            if (began && !inRow && y > shape.bottom() + kGap) break;
        }
        if (shape.isNull()) return std::nullopt;
        return shape.center();
    }
    bool waitFor(const QColor& color, const QRect& part) const {
        return waitUntil([&] { return find(color, part).has_value(); });
    }
    void click(QPoint inWindow) const {
        const QPoint at = window().geometry.topLeft() + inWindow;
        session.output("xdotool",
                       {"mousemove", QString::number(at.x()), QString::number(at.y()), "click", "1"});
    }
    void keys(const QStringList& names) const { session.output("xdotool", QStringList{"key"} + names); }
    /// Waits for a stored value.
    bool becomes(const char* key, const char* json, int limitMs = 15000) const {
        return waitUntil([&] { return storedDefault(session, key) == json; }, limitMs);
    }

    PrivateSession session;
    std::optional<RunningProgram> program;

private:
    static constexpr int kGap = 6;
    static bool isClose(const QColor& first, const QColor& second) {
        constexpr int kTolerance = 4;
        return std::abs(first.red() - second.red()) <= kTolerance &&
               std::abs(first.green() - second.green()) <= kTolerance &&
               std::abs(first.blue() - second.blue()) <= kTolerance;
    }
};

TEST_F(SettingsTest, AnActivationShowsAnOrdinaryWindowInTheMiddleOnTheModules) {
    open();
    const ShownWindow shown = window();
    EXPECT_EQ(shown.geometry.size(), QSize(940, 560));
    EXPECT_NEAR(shown.geometry.center().x(), 640, 6);
    EXPECT_TRUE(title().startsWith("Settings")) << title().toStdString();
    const QList<int> frame = windowNumbers(session, shown.id, "_NET_FRAME_EXTENTS");
    ASSERT_EQ(frame.size(), 4);
    EXPECT_GT(frame[2], 0) << "the desktop's own title bar";
    EXPECT_TRUE(
        session.output("xprop", {"-id", shown.id, "WM_NORMAL_HINTS"}).contains("minimum size: 880 by 480"));
    EXPECT_TRUE(find(kAccent, QRect(0, 0, 220, 560))) << "a tab is selected";
}

TEST_F(SettingsTest, ASecondActivationBringsTheSameWindowForward) {
    open();
    const QString first = window().id;
    session.output("xdotool", {"windowminimize", first});
    ASSERT_TRUE(waitUntil([this] { return window().id.isEmpty(); }));
    ASSERT_TRUE(activate());
    EXPECT_TRUE(waitUntil([&] { return window().id == first && hasFocus(); }));
}

TEST_F(SettingsTest, TheMouseOperatesTheControlsOfAModulesPage) {
    open();
    ASSERT_TRUE(waitFor(kAccent, kPage.adjusted(0, 150, 0, 0)));
    const QPoint showSwitch = *find(kAccent, kPage.adjusted(0, 150, 0, 0));
    const ShownWindow strip = dockWindow(session);

    click(showSwitch);
    EXPECT_TRUE(becomes("enabledModules", R"(["memory","network"])"));
    EXPECT_TRUE(
        waitUntil([&] { return dockWindow(session).geometry.width() < strip.geometry.width(); }, kSecondMs));
    click(showSwitch);
    EXPECT_TRUE(becomes("enabledModules", R"(["cpu","memory","network"])"));

    // The dropdowns stand below the switch, one row each.
    click(showSwitch + QPoint(-40, 57));
    keys({"Down", "Down", "Down", "Return"});
    EXPECT_TRUE(becomes("moduleStyles", R"({"cpu":"graph"})"));
    click(showSwitch + QPoint(-40, 112));
    keys({"Down", "End", "Return"});
    EXPECT_TRUE(becomes("moduleIntervals", R"({"cpu":10.0})"));

    ASSERT_TRUE(waitFor(kRed, kPage));
    const QPoint red = *find(kRed, kPage);
    click(red);
    EXPECT_TRUE(becomes("moduleColors", R"({"cpu":"FF3B30"})"));
    EXPECT_TRUE(waitUntil(
        [&] { return reddishPixels(screenPicture(session), dockWindow(session).geometry) > 0; }, kSecondMs))
        << "the item follows";
    click(QPoint(red.x() - 6 * 32, red.y()));
    EXPECT_TRUE(becomes("moduleColors", "{}")) << "the first swatch takes the colour away";

    const QRect boxes(kPage.left(), red.y() + 40, kPage.width() / 2, kPage.height());
    ASSERT_TRUE(waitFor(kAccent, boxes));
    click(*find(kAccent, boxes));
    EXPECT_TRUE(becomes("moduleHiddenMetrics", R"({"cpu":["cores"]})"));
}

TEST_F(SettingsTest, TheKeyboardOperatesTheControlsOfAModulesPage) {
    open();
    // The focus is on the tab; the module, the switch, the dropdowns, the swatches and the boxes follow.
    keys({"Tab", "Down"});
    keys({"Tab", "space"});
    EXPECT_TRUE(becomes("enabledModules", R"(["cpu","network"])")) << "the second module was chosen";
    keys({"Tab", "space"});
    keys({"Down", "Down", "Return"});
    EXPECT_TRUE(becomes("moduleStyles", R"({"memory":"value"})"));
    keys({"Tab", "Return"});
    keys({"Down", "Return"});
    EXPECT_TRUE(waitUntil([this] { return !storedDefault(session, "moduleIntervals").isEmpty(); }));
    keys({"Tab", "Right"});
    EXPECT_TRUE(becomes("moduleColors", R"({"memory":"0A84FF"})"));
    keys({"Right", "Right"});
    EXPECT_TRUE(becomes("moduleColors", R"({"memory":"30B0C7"})"));
    keys({"Tab", "Tab", "space"});
    EXPECT_TRUE(becomes("moduleHiddenMetrics", R"({"memory":["swap"]})"));
    keys({"space"});
    EXPECT_TRUE(becomes("moduleHiddenMetrics", R"({"memory":[]})"));
}

TEST_F(SettingsTest, TheGeneralPageChangesTheLanguageOfTheOpenWindow) {
    open();
    const QPoint generalRow(110, 62);
    click(generalRow);
    ASSERT_TRUE(waitUntil([this] { return window().geometry.width() == 720; }));
    keys({"Tab", "space"});
    keys({"d", "Return"});
    EXPECT_TRUE(becomes("languageCode", "\"de\""));
    EXPECT_TRUE(waitUntil([this] { return title().startsWith("Einstellungen"); }, kSecondMs));
    keys({"Tab", "space"});
    EXPECT_TRUE(becomes("launchAtLogin", "false"));
}

TEST_F(SettingsTest, TheAboutPageWritesTheReportSwitches) {
    open();
    keys({"Down"});
    ASSERT_TRUE(waitUntil([this] { return window().geometry.width() == 720; }));
    ASSERT_TRUE(waitFor(kAccent, QRect(540, 340, 180, 220)));
    click(*find(kAccent, QRect(540, 340, 180, 220)));
    EXPECT_TRUE(becomes("crashReportingEnabled", "false"));
}

TEST_F(SettingsTest, ATabBringsTheWindowToItsWidthWithoutLeavingTheScreen) {
    open();
    const QPoint generalRow(110, 62);
    const QPoint modulesRow(110, 100);
    click(generalRow);
    ASSERT_TRUE(waitUntil([this] { return window().geometry.width() == 720; }));
    session.output("xdotool", {"windowmove", window().id, "550", "120"});
    ASSERT_TRUE(waitUntil([this] { return window().geometry.left() >= 550; }));
    click(modulesRow);
    ASSERT_TRUE(waitUntil([this] { return window().geometry.width() == 940; }));
    EXPECT_TRUE(waitUntil([this] { return window().geometry.right() <= 1279; }));
    EXPECT_GE(window().geometry.left(), 0);
}

TEST_F(SettingsTest, ClosingTheWindowLeavesTheProgramAndReopeningKeepsThePage) {
    open();
    keys({"Up"});
    ASSERT_TRUE(waitUntil([this] { return window().geometry.width() == 720; }));
    keys({"ctrl+w"});
    ASSERT_TRUE(waitUntil([this] { return window().id.isEmpty(); }));
    EXPECT_TRUE(program->isRunning());
    ASSERT_TRUE(activate());
    EXPECT_TRUE(waitUntil([this] { return window().geometry.width() == 720; }));
}

TEST_F(SettingsTest, AtTwiceTheSizeTheWindowFitsTheScreenAndTheLastControlIsReached) {
    QProcessEnvironment twice;
    twice.insert("QT_SCALE_FACTOR", "2");
    open(twice);
    const QRect screen(0, 0, 1280, 720);
    EXPECT_TRUE(screen.contains(window().geometry));
    // Up to the last of the four boxes: the keyboard scrolls to what it reaches.
    keys({"Tab", "Tab", "Tab", "Tab", "Tab", "Tab", "Tab", "Tab", "Tab"});
    keys({"space"});
    EXPECT_TRUE(becomes("moduleHiddenMetrics", R"({"cpu":["top"]})"));
    EXPECT_TRUE(waitFor(kAccent, QRect(QPoint(0, 0), window().geometry.size()))) << "something of it is seen";
}

TEST_F(SettingsTest, WhereNothingCanShowTheItemsTheWindowOpensByItself) {
    storeDefault(session, "statusBar.backend", "\"tray\"");
    program.emplace(session);
    EXPECT_TRUE(waitUntil([this] { return !window().id.isEmpty(); }, 20000));
    EXPECT_TRUE(dockWindow(session).id.isEmpty());
}

TEST_F(SettingsTest, ASecondCopyThatNobodyCouldSeeTakesOverAndShowsItself) {
    storeDefault(session, "statusBar.backend", "\"tray\"");
    RunningProgram first(session);
    ASSERT_TRUE(waitUntil([this] { return !window().id.isEmpty(); }, 20000));
    const QString window1 = window().id;
    program.emplace(session);
    EXPECT_EQ(first.waitForExit(), 0);
    EXPECT_TRUE(waitUntil([&] { return !window().id.isEmpty() && window().id != window1; }, 20000));
    EXPECT_TRUE(program->isRunning());
}

TEST_F(SettingsTest, DamagedSettingsAreShownAsTheirDefaults) {
    storeDefault(session, "moduleStyles", R"({"cpu":"hologram"})");
    storeDefault(session, "moduleColors", R"({"cpu":"zz"})");
    storeDefault(session, "moduleIntervals", R"({"cpu":4.5})");
    storeDefault(session, "languageCode", "\"tlh\"");
    open();
    EXPECT_TRUE(title().startsWith("Settings"));
    // Picking a style mends its entry and leaves the others as they are.
    keys({"Tab", "Tab", "Tab", "space"});
    keys({"Down", "Return"});
    EXPECT_TRUE(waitUntil([this] { return !storedDefault(session, "moduleStyles").contains("hologram"); }));
    EXPECT_EQ(storedDefault(session, "moduleColors"), R"({"cpu":"zz"})");
    EXPECT_TRUE(program->isRunning());
}

TEST_F(SettingsTest, TheProgramEndsCleanlyWithItsWindowOpen) {
    open();
    program->process().terminate();
    EXPECT_EQ(program->waitForExit(), 0);
}

}  // namespace
}  // namespace velmora
