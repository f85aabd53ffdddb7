// Panels of the real program, opened by real clicks, seen as a screen reader and as the eye see them.

#include "AccessibleTree.h"
#include "PortalSettings.h"
#include "RunningProgram.h"
#include "ScreenPicture.h"
#include "TrayHost.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

namespace velmora {
namespace {

class PanelTest : public testing::Test {
protected:
    PanelTest() {
        storeDefault(session, "sampleInterval", "0.5");
        storeDefault(session, "enabledModules", R"(["cpu","memory"])");
        storeDefault(session, "moduleStyles", R"({"cpu":"value","memory":"value"})");
        startWindowManager(session);
    }

    /// Waits until a screen reader knows the program's items in its strip, and the strip has come to rest in
    /// its place: the window manager puts it there a moment after it is shown.
    void waitForItems() {
        constexpr int kEqualLooks = 8;
        QRect last;
        int equal = 0;
        ASSERT_TRUE(waitUntil([&] {
            m_program = tree.application("velmora");
            if (!m_program) return false;
            const QRect now = cell("CPU") | cell("MEM");
            equal = now == last && isOnScreen(now) ? equal + 1 : 0;
            last = now;
            return equal >= kEqualLooks;
        }));
    }
    /// Where nothing is, the screen is black all over.
    bool isOnScreen(const QRect& place) const {
        const QImage shown = picture(place);
        for (int x = 0; x < shown.width(); ++x) {
            for (int y = 0; y < shown.height(); ++y) {
                if (shown.pixelColor(x, y) != QColor(Qt::black)) return true;
            }
        }
        return false;
    }
    /// The place of an item.
    QRect cell(const QString& name) const {
        const auto item = tree.find(m_program.value(), [&](const AccessibleObject& object) {
            return tree.name(object) == name && tree.role(object).contains("button");
        });
        return item ? tree.extents(*item) : QRect();
    }
    void movePointer(QPoint to) const {
        session.output("xdotool", {"mousemove", QString::number(to.x()), QString::number(to.y())});
    }
    void click(QPoint at) const {
        movePointer(at);
        session.output("xdotool", {"click", "1"});
    }
    void press(const QString& key) const { session.output("xdotool", {"key", key}); }
    /// The open panel's window; nothing while none is open.
    std::optional<AccessibleObject> panel() const {
        for (const AccessibleObject& window : tree.children(m_program.value())) {
            if (tree.role(window) == "dialog") return window;
        }
        return std::nullopt;
    }
    bool waitForPanel(const QString& name) const {
        return waitUntil([&] {
            const auto open = panel();
            return open && tree.name(*open) == name;
        });
    }
    bool waitUntilClosed() const {
        return waitUntil([this] { return !panel(); });
    }
    std::optional<AccessibleObject> part(const QString& name, const QString& role) const {
        const auto open = panel();
        if (!open) return std::nullopt;
        return tree.find(*open, [&](const AccessibleObject& object) {
            return tree.name(object) == name && tree.role(object) == role;
        });
    }
    std::optional<AccessibleObject> settingsButton() const { return part("Settings…", "push button"); }
    QImage picture(const QRect& of) const { return screenPicture(session).copy(of); }

    PrivateSession session;
    AccessibleTree tree{session};

private:
    std::optional<AccessibleObject> m_program;
};

TEST_F(PanelTest, ClickOnAnItemOpensItsPanelBelowIt) {
    const RunningProgram program(session, {}, accessibilityOn());
    waitForItems();
    const QRect item = cell("CPU");
    click(item.center());
    ASSERT_TRUE(waitForPanel("CPU"));
    const QRect window = tree.extents(panel().value());
    EXPECT_EQ(window.width(), 300);
    EXPECT_GE(window.top(), item.bottom() + 1);
    EXPECT_LE(window.top(), item.bottom() + 1 + 4) << "at most the gap to the edge of the work area";
    EXPECT_TRUE(QRect(0, 0, 1280, 720).contains(window));
}

TEST_F(PanelTest, AScreenReaderFindsRowsWithTheirFigures) {
    const RunningProgram program(session, {}, accessibilityOn());
    waitForItems();
    click(cell("CPU").center());
    ASSERT_TRUE(waitForPanel("CPU"));
    for (const char* row : {"User", "System", "Load averages", "Uptime"}) {
        const auto found = tree.named(panel().value(), row);
        ASSERT_TRUE(found) << row;
        EXPECT_FALSE(tree.description(*found).isEmpty()) << row;
    }
    EXPECT_TRUE(tree.description(tree.named(panel().value(), "User").value()).endsWith('%'));
    const auto graph = part("CPU", "chart");
    ASSERT_TRUE(graph);
    EXPECT_TRUE(tree.description(*graph).contains("User"));
}

TEST_F(PanelTest, FiguresGoOnWhileThePanelIsOpen) {
    const RunningProgram program(session, {}, accessibilityOn());
    waitForItems();
    click(cell("CPU").center());
    ASSERT_TRUE(waitForPanel("CPU"));
    const QRect graph = tree.extents(part("CPU", "chart").value());
    const QImage before = picture(graph);
    EXPECT_TRUE(waitUntil([&] { return picture(graph) != before; }));
}

TEST_F(PanelTest, TheBusiestProcessesArrive) {
    session.start("sh", {"-c", "while :; do :; done"});
    const RunningProgram program(session, {}, accessibilityOn());
    waitForItems();
    click(cell("CPU").center());
    ASSERT_TRUE(waitForPanel("CPU"));
    EXPECT_TRUE(waitUntil([this] {
        const auto process = tree.named(panel().value(), "sh");
        return process && tree.description(*process).endsWith('%');
    }));
}

TEST_F(PanelTest, ThePointerOverTheGraphShowsTheChip) {
    const RunningProgram program(session, {}, accessibilityOn());
    waitForItems();
    click(cell("CPU").center());
    ASSERT_TRUE(waitForPanel("CPU"));
    const QRect graph = tree.extents(part("CPU", "chart").value());
    // The newest slot stands at the right edge and has a value from the first tick on.
    const auto chip = [this] {
        const auto found = part("Now", "tool tip");
        return found && tree.isShowing(*found) ? found : std::nullopt;
    };
    ASSERT_FALSE(chip());
    movePointer({graph.right() - 1, graph.center().y()});
    ASSERT_TRUE(waitUntil([&] { return chip().has_value(); }));
    EXPECT_TRUE(tree.description(chip().value()).contains("User"));
    const QRect place = tree.extents(chip().value());
    EXPECT_TRUE(tree.extents(panel().value()).contains(place));
    EXPECT_GT(place.bottom(), graph.bottom()) << "below the graph, its shadow aside";
    const QImage shown = picture(place);
    movePointer({graph.center().x(), graph.bottom() + 200});
    EXPECT_TRUE(waitUntil([&] { return !chip(); }));
    EXPECT_TRUE(waitUntil([&] { return picture(place) != shown; }));
}

TEST_F(PanelTest, TheOwnSettingsButtonClosesThePanel) {
    const RunningProgram program(session, {}, accessibilityOn());
    waitForItems();
    click(cell("CPU").center());
    ASSERT_TRUE(waitForPanel("CPU"));
    const auto button = settingsButton();
    ASSERT_TRUE(button);
    click(tree.extents(*button).center());
    EXPECT_TRUE(waitUntilClosed());
}

TEST_F(PanelTest, EscapeClosesThePanel) {
    const RunningProgram program(session, {}, accessibilityOn());
    waitForItems();
    click(cell("CPU").center());
    ASSERT_TRUE(waitForPanel("CPU"));
    press("Escape");
    EXPECT_TRUE(waitUntilClosed());
}

TEST_F(PanelTest, TabAndEnterPressTheSettingsButton) {
    const RunningProgram program(session, {}, accessibilityOn());
    waitForItems();
    click(cell("CPU").center());
    ASSERT_TRUE(waitForPanel("CPU"));
    // This session has no tools installed that the panel could lead to, or some: the own button comes last,
    // and from the first one it is one step back.
    press("shift+Tab");
    press("Return");
    EXPECT_TRUE(waitUntilClosed());
}

TEST_F(PanelTest, AClickElsewhereClosesThePanelAndTheItemIsNoLongerLit) {
    const RunningProgram program(session, {}, accessibilityOn());
    waitForItems();
    movePointer({100, 600});
    const QRect item = cell("CPU");
    const QRect corner(item.topLeft() + QPoint(2, 4), QSize(1, 3));
    const QImage unlit = picture(corner);
    click(item.center());
    ASSERT_TRUE(waitForPanel("CPU"));
    EXPECT_TRUE(waitUntil([&] { return picture(corner) != unlit; })) << "lit while its panel is open";
    click({100, 600});
    EXPECT_TRUE(waitUntilClosed());
    EXPECT_TRUE(waitUntil([&] { return picture(corner) == unlit; }));
}

TEST_F(PanelTest, ASecondClickOnTheItemClosesThePanelAndAThirdOpensIt) {
    const RunningProgram program(session, {}, accessibilityOn());
    waitForItems();
    click(cell("CPU").center());
    ASSERT_TRUE(waitForPanel("CPU"));
    click(cell("CPU").center());
    ASSERT_TRUE(waitUntilClosed());
    click(cell("CPU").center());
    EXPECT_TRUE(waitForPanel("CPU"));
}

TEST_F(PanelTest, AClickOnAnotherItemOpensItsPanelInstead) {
    const RunningProgram program(session, {}, accessibilityOn());
    waitForItems();
    const QRect memory = cell("MEM");
    click(cell("CPU").center());
    ASSERT_TRUE(waitForPanel("CPU"));
    click(memory.center());
    EXPECT_TRUE(waitForPanel("Memory"));
}

TEST_F(PanelTest, TheDesktopsSchemeIsFollowedWhileThePanelIsOpen) {
    PortalSettings portal(session.busAddress(), PortalSettings::Preference::dark);
    const RunningProgram program(session, {}, accessibilityOn());
    waitForItems();
    click(cell("CPU").center());
    ASSERT_TRUE(waitForPanel("CPU"));
    const QRect window = tree.extents(panel().value());
    const QRect ground(window.left() + 150, window.top() + 2, 1, 1);
    EXPECT_TRUE(waitUntil([&] { return picture(ground).pixelColor(0, 0) == QColor(42, 42, 45); }));
    portal.set(PortalSettings::Preference::light);
    EXPECT_TRUE(waitUntil([&] { return picture(ground).pixelColor(0, 0) == QColor(Qt::white); }));
}

TEST_F(PanelTest, ThePanelIsToggledOverTheSessionBus) {
    const RunningProgram program(session, {}, accessibilityOn());
    waitForItems();
    const auto toggle = [this](const char* module) {
        session.output("dbus-send",
                       {"--session", "--print-reply", "--dest=com.torvane.Velmora", "/com/torvane/Velmora",
                        "com.torvane.Velmora.TogglePanel", QString("string:") + module});
    };
    toggle("cpu");
    ASSERT_TRUE(waitForPanel("CPU"));
    EXPECT_GE(tree.extents(panel().value()).top(), cell("CPU").bottom() + 1) << "below its item";
    toggle("cpu");
    ASSERT_TRUE(waitUntilClosed());
    toggle("battery");
    toggle("no such module");
    toggle("memory");
    EXPECT_TRUE(waitForPanel("Memory")) << "those without an item were ignored";
}

TEST_F(PanelTest, TheToolOfTheNetworkPanelEndsWithIt) {
    storeDefault(session, "enabledModules", R"(["cpu","memory","network"])");
    const RunningProgram program(session, {}, accessibilityOn());
    ASSERT_TRUE(QFile::copy(QFileInfo(VELMORA_PROGRAM).path() + "/nettop", session.folder() + "/nettop"));
    waitForItems();
    const auto tools = [&] {
        int count = 0;
        for (const QString& name : QDir("/proc").entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            QFile status("/proc/" + name + "/status");
            if (!name.front().isDigit() || !status.open(QFile::ReadOnly)) continue;
            count += status.readAll().contains("\nPPid:\t" + QByteArray::number(program.pid()) + "\n");
        }
        return count;
    };
    ASSERT_EQ(tools(), 0);
    click(cell("NET").center());
    ASSERT_TRUE(waitForPanel("Network"));
    EXPECT_TRUE(waitUntil([&] { return tools() == 1; }));
    press("Escape");
    EXPECT_TRUE(waitUntil([&] { return tools() == 0; }));
}

/// The items in the tray of a host that only tells of clicks.
class PanelFromTrayTest : public PanelTest {
protected:
    PanelFromTrayTest() { storeDefault(session, "statusBar.backend", "\"tray\""); }
    TrayHost host{session.busAddress()};
};

TEST_F(PanelFromTrayTest, TheHostsClickOpensThePanelAtThePointer) {
    const RunningProgram program(session, {}, accessibilityOn());
    ASSERT_TRUE(waitUntil([this] { return host.items().size() == 2; }));
    movePointer({400, 700});
    // The host's own point is in units that nobody knows.
    host.activate(host.itemNamed("Velmora.cpu"), 7, 7);
    std::optional<AccessibleObject> velmora;
    ASSERT_TRUE(waitUntil([&] { return (velmora = tree.application("velmora")).has_value(); }));
    std::optional<AccessibleObject> window;
    ASSERT_TRUE(waitUntil([&] { return (window = tree.named(*velmora, "CPU")).has_value(); }));
    const QRect place = tree.extents(*window);
    EXPECT_EQ(place.left(), 400);
    EXPECT_EQ(place.bottom() + 1, 700) << "above a pointer in the lower half";
    host.activate(host.itemNamed("Velmora.cpu"), 7, 7);
    EXPECT_TRUE(waitUntil([&] { return !tree.named(*velmora, "CPU"); }));
}

TEST_F(PanelFromTrayTest, APanelThatAHostOpensAtPressClosesAtTheNextClickElsewhere) {
    const RunningProgram program(session, {}, accessibilityOn());
    ASSERT_TRUE(waitUntil([this] { return host.items().size() == 2; }));
    std::optional<AccessibleObject> velmora;
    ASSERT_TRUE(waitUntil([&] { return (velmora = tree.application("velmora")).has_value(); }));
    // The button is down in another program, whose pointer it then is.
    session.start("xev", {"-geometry", "300x200+300+100"});
    ASSERT_TRUE(waitUntil([this] {
        return session.output("xwininfo", {"-name", "Event Tester"}).contains("IsViewable");
    }));
    movePointer({450, 200});
    session.output("xdotool", {"mousedown", "1"});
    host.activate(host.itemNamed("Velmora.cpu"), 7, 7);
    ASSERT_TRUE(waitUntil([&] { return tree.named(*velmora, "CPU").has_value(); }));
    session.output("xdotool", {"mouseup", "1"});
    // The popup asks for the pointer again within the next moments.
    EXPECT_TRUE(waitUntil([&] {
        click({100, 600});
        return !tree.named(*velmora, "CPU");
    }));
}

/// A session whose X server is said to belong to a Wayland compositor, where a popup cannot grab the pointer.
class PanelUnderXwaylandTest : public PanelTest, public testing::WithParamInterface<const char*> {
protected:
    static QProcessEnvironment xwayland() {
        QProcessEnvironment environment = accessibilityOn();
        environment.insert("WAYLAND_DISPLAY", "wayland-9");
        environment.insert("XDG_SESSION_TYPE", "wayland");
        environment.insert("XDG_CURRENT_DESKTOP", GetParam());
        return environment;
    }
    /// Of the parts that lie over the whole screen; they take the place of the grab.
    bool isShieldUp() const {
        for (const AccessibleObject& window : tree.children(tree.application("velmora").value())) {
            if (tree.isShowing(window) && tree.extents(window) == QRect(0, 0, 1280, 720)) return true;
        }
        return false;
    }
};

TEST_P(PanelUnderXwaylandTest, AClickElsewhereClosesThePanelAndItsShield) {
    const RunningProgram program(session, {}, xwayland());
    waitForItems();
    click(cell("CPU").center());
    ASSERT_TRUE(waitForPanel("CPU"));
    EXPECT_TRUE(waitUntil([this] { return isShieldUp(); }));
    click({100, 600});
    EXPECT_TRUE(waitUntilClosed());
    EXPECT_TRUE(waitUntil([this] { return !isShieldUp(); }));
}

TEST_P(PanelUnderXwaylandTest, ItemsTakeClicksThroughTheShield) {
    const RunningProgram program(session, {}, xwayland());
    waitForItems();
    click(cell("CPU").center());
    ASSERT_TRUE(waitForPanel("CPU"));
    click(cell("MEM").center());
    ASSERT_TRUE(waitForPanel("Memory"));
    click(cell("MEM").center());
    EXPECT_TRUE(waitUntilClosed());
}

TEST_P(PanelUnderXwaylandTest, TheButtonsOfThePanelTakeClicks) {
    const RunningProgram program(session, {}, xwayland());
    waitForItems();
    click(cell("CPU").center());
    ASSERT_TRUE(waitForPanel("CPU"));
    const auto button = settingsButton();
    ASSERT_TRUE(button);
    EXPECT_TRUE(QRect(0, 0, 1280, 720).contains(tree.extents(panel().value())));
    click(tree.extents(*button).center());
    EXPECT_TRUE(waitUntilClosed());
}

INSTANTIATE_TEST_SUITE_P(FloatingAndTiling, PanelUnderXwaylandTest, testing::Values("GNOME", "sway"));

class PanelUnderXwaylandWithAWindowManagerTest : public PanelUnderXwaylandTest {};

TEST_P(PanelUnderXwaylandWithAWindowManagerTest, EscapeClosesThePanel) {
    const RunningProgram program(session, {}, xwayland());
    waitForItems();
    click(cell("CPU").center());
    ASSERT_TRUE(waitForPanel("CPU"));
    EXPECT_TRUE(waitUntil([this] {
        press("Escape");  // Once the window manager has given it the keyboard.
        return !panel();
    }));
}

INSTANTIATE_TEST_SUITE_P(Floating, PanelUnderXwaylandWithAWindowManagerTest, testing::Values("GNOME", "KDE"));

}  // namespace
}  // namespace velmora
