#include "app/PanelController.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeMenuView.h"
#include "fakes/FakeRunLoop.h"
#include "panels/kit/ProcessIcons.h"
#include "platform/ProcessIconSource.h"
#include "platform/qt/strip/StripCell.h"
#include "platform/qt/strip/StripStatusBar.h"
#include "platform/qt/window/OutsideClickShield.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QScreen>

namespace velmora {
namespace {

constexpr Anchor kCell{300, 0, 66, 26};
constexpr Anchor kOtherCell{366, 0, 66, 26};

class NoIcons final : public ProcessIconSource {
public:
    std::optional<std::string> iconOf(std::int32_t) override { return std::nullopt; }
};

class PanelControllerTest : public testing::Test {
protected:
    PanelController& in(Session::WindowSystem windows, Session::Desktop desktop = Session::Desktop::other) {
        m_controller = std::make_unique<PanelController>(
            [this](StatsModule module, std::function<void()> dismiss) {
                auto view = std::make_unique<FakeMenuView>(module, log, std::move(dismiss));
                view->shown = panelOfCards(3);
                return view;
            },
            scheme, icons, runLoop, Session{windows, desktop});
        return *m_controller;
    }
    PanelController& controller() { return m_controller ? *m_controller : in(Session::WindowSystem::x11); }
    std::optional<StatsModule> openModule() {
        return controller().window() ? std::optional(controller().window()->module()) : std::nullopt;
    }
    /// As the toolkit hands a click to the popup that has grabbed the pointer.
    void clickAt(QPoint at) {
        QWidget& window = *controller().window();
        QMouseEvent press(QEvent::MouseButtonPress, window.mapFromGlobal(QPointF(at)), QPointF(at),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &press);
    }
    void clickShieldAt(QPoint at) {
        QWidget& shield = *controller().shield();
        QMouseEvent press(QEvent::MouseButtonPress, shield.mapFromGlobal(QPointF(at)), QPointF(at),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&shield, &press);
    }
    void loseKeyboard() {
        QEvent event(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(controller().window(), &event);
    }

    FakeMenuView::Log log;
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    Published<Scheme> scheme{Scheme::dark};
    NoIcons iconSource;
    ProcessIcons icons{iconSource};

private:
    std::unique_ptr<PanelController> m_controller;
};

TEST_F(PanelControllerTest, PanelOpensBelowItsItem) {
    controller().toggle(StatsModule::cpu, kCell);
    ASSERT_NE(controller().window(), nullptr);
    EXPECT_TRUE(controller().window()->isVisible());
    EXPECT_EQ(openModule(), StatsModule::cpu);
    EXPECT_EQ(controller().window()->geometry().topLeft(), QPoint(300, 26));
    EXPECT_EQ(controller().window()->width(), 300);
}

TEST_F(PanelControllerTest, PanelStaysOnTheScreen) {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    controller().toggle(StatsModule::cpu, {screen.right(), 0, 66, 26});
    EXPECT_TRUE(screen.contains(controller().window()->geometry()));
    controller().close();
    controller().toggle(StatsModule::cpu, {0, screen.bottom() - 20, 66, 20});
    EXPECT_TRUE(screen.contains(controller().window()->geometry()));
}

TEST_F(PanelControllerTest, AnchorBesideEveryScreenOpensOnThePrimaryOne) {
    controller().toggle(StatsModule::cpu, {-90000, -90000, 1, 1});
    EXPECT_TRUE(QGuiApplication::primaryScreen()->geometry().contains(controller().window()->geometry()));
}

TEST_F(PanelControllerTest, SecondClickOnTheItemCloses) {
    controller().toggle(StatsModule::cpu, kCell);
    controller().toggle(StatsModule::cpu, kCell);
    EXPECT_EQ(openModule(), std::nullopt);
    runLoop.runPosted();
    controller().toggle(StatsModule::cpu, kCell);
    EXPECT_EQ(openModule(), StatsModule::cpu) << "and the third one opens again";
}

TEST_F(PanelControllerTest, ClickOnAnotherItemOpensItsPanelInstead) {
    controller().toggle(StatsModule::cpu, kCell);
    controller().toggle(StatsModule::memory, kOtherCell);
    EXPECT_EQ(openModule(), StatsModule::memory);
    runLoop.runPosted();
    EXPECT_EQ(log.alive, 1);
}

TEST_F(PanelControllerTest, EachOpeningMakesANewPanelWithOneBackdrop) {
    for (int opening = 1; opening <= 2; ++opening) {
        controller().toggle(StatsModule::cpu, kCell);
        EXPECT_EQ(log.made, opening);
        EXPECT_EQ(controller().window()->findChildren<PanelBackdrop*>().size(), 1);
        controller().toggle(StatsModule::cpu, kCell);
        runLoop.runPosted();
    }
}

TEST_F(PanelControllerTest, NoPanelExistsBeforeTheFirstClick) {
    controller();
    EXPECT_EQ(log.made, 0);
}

TEST_F(PanelControllerTest, ClosedPanelIsGoneOnceWhatClosedItHasRun) {
    controller().toggle(StatsModule::cpu, kCell);
    controller().close();
    EXPECT_EQ(log.alive, 1) << "an action of the panel may still be running";
    runLoop.runPosted();
    EXPECT_EQ(log.alive, 0);
}

TEST_F(PanelControllerTest, OpenPanelGoesWithItsController) {
    {
        PanelController own(
            [this](StatsModule module, std::function<void()>) {
                return std::make_unique<FakeMenuView>(module, log);
            },
            scheme, icons, runLoop, Session{Session::WindowSystem::x11, Session::Desktop::other});
        own.toggle(StatsModule::cpu, kCell);
        own.toggle(StatsModule::memory, kCell);
        EXPECT_EQ(log.alive, 2);
    }
    EXPECT_EQ(log.alive, 0);
    runLoop.runPosted();
}

TEST_F(PanelControllerTest, ShortcutClosesThePanelBeforeItActs) {
    controller().toggle(StatsModule::cpu, kCell);
    FakeMenuView& content = *log.last;
    content.dismiss();
    EXPECT_EQ(controller().window(), nullptr);
    EXPECT_EQ(log.alive, 1);
    runLoop.runPosted();
    EXPECT_EQ(log.alive, 0);
}

TEST_F(PanelControllerTest, LateDismissalLeavesTheNextPanelOpen) {
    controller().toggle(StatsModule::cpu, kCell);
    const std::function<void()> dismissFirst = log.last->dismiss;
    controller().toggle(StatsModule::memory, kOtherCell);
    runLoop.runPosted();
    dismissFirst();
    EXPECT_EQ(openModule(), StatsModule::memory);
}

TEST_F(PanelControllerTest, DismissalAfterTheControllerIsGoneDoesNothing) {
    std::function<void()> late;
    {
        PanelController own(
            [&](StatsModule module, std::function<void()> dismiss) {
                late = dismiss;
                return std::make_unique<FakeMenuView>(module, log);
            },
            scheme, icons, runLoop, Session{Session::WindowSystem::x11, Session::Desktop::other});
        own.toggle(StatsModule::cpu, kCell);
    }
    late();
}

TEST_F(PanelControllerTest, DismissalInsideTheMakingOfThePanelDoesNothing) {
    PanelController own(
        [this](StatsModule module, std::function<void()> dismiss) {
            dismiss();
            return std::make_unique<FakeMenuView>(module, log);
        },
        scheme, icons, runLoop, Session{Session::WindowSystem::x11, Session::Desktop::other});
    own.toggle(StatsModule::cpu, kCell);
    EXPECT_NE(own.window(), nullptr);
}

TEST_F(PanelControllerTest, ClickElsewhereCloses) {
    controller().toggle(StatsModule::cpu, kCell);
    clickAt({10, 500});
    EXPECT_EQ(openModule(), std::nullopt);
    runLoop.runPosted();
    EXPECT_EQ(log.alive, 0);
}

TEST_F(PanelControllerTest, ScreenThatBecomesAnotherClosesThePanel) {
    controller().toggle(StatsModule::cpu, kCell);
    QScreen* const screen = controller().window()->screen();
    emit screen->geometryChanged(screen->geometry());
    EXPECT_EQ(openModule(), std::nullopt);
    runLoop.runPosted();
    EXPECT_EQ(log.alive, 0);
}

TEST_F(PanelControllerTest, PanelOfTheToolkitsOwnClosingIsDroppedToo) {
    controller().toggle(StatsModule::cpu, kCell);
    controller().window()->close();
    EXPECT_EQ(openModule(), std::nullopt);
    runLoop.runPosted();
    EXPECT_EQ(log.alive, 0);
}

/// A strip with two items, whose clicks open panels as in the program.
class PanelUnderStripTest : public PanelControllerTest {
protected:
    PanelUnderStripTest() {
        strip.setItems(
            {{"Velmora.cpu", "CPU", "", false, false}, {"Velmora.memory", "MEM", "", false, false}});
        for (const char* id : {"Velmora.cpu", "Velmora.memory"}) {
            strip.setImage(id, {{{60, 22, 1, std::vector<std::uint32_t>(60U * 22U, 0xFF0A84FF)}}, {}});
        }
        m_clicks = strip.activated.subscribe([this](const std::string& id, const Anchor& anchor) {
            controller().toggle(id == "Velmora.cpu" ? StatsModule::cpu : StatsModule::memory, anchor);
        });
    }
    QPoint middleOf(const std::string& id) const {
        const Anchor cell = strip.placeOf(id).value();
        return {cell.x + cell.width / 2, cell.y + cell.height / 2};
    }
    void clickCell(const std::string& id) {
        const QPoint at = middleOf(id);
        QWidget* const cell = QApplication::widgetAt(at);
        ASSERT_TRUE(qobject_cast<StripCell*>(cell));
        QMouseEvent press(QEvent::MouseButtonPress, cell->mapFromGlobal(QPointF(at)), QPointF(at),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(cell, &press);
    }

    StripStatusBar strip{{Session::WindowSystem::offscreen, Session::Desktop::other},
                         StripWindow::Kind::dock};

private:
    Subscription m_clicks;
};

TEST_F(PanelUnderStripTest, ClickOnTheOwnItemThroughTheGrabClosesAndDoesNotOpenAgain) {
    clickCell("Velmora.cpu");
    ASSERT_EQ(openModule(), StatsModule::cpu);
    clickAt(middleOf("Velmora.cpu"));
    runLoop.runPosted();
    EXPECT_EQ(openModule(), std::nullopt);
    EXPECT_EQ(log.made, 1);
    clickCell("Velmora.cpu");
    EXPECT_EQ(openModule(), StatsModule::cpu);
}

TEST_F(PanelUnderStripTest, ClickOnAnotherItemThroughTheGrabOpensItsPanel) {
    clickCell("Velmora.cpu");
    clickAt(middleOf("Velmora.memory"));
    runLoop.runPosted();
    EXPECT_EQ(openModule(), StatsModule::memory);
    clickAt(middleOf("Velmora.cpu"));
    runLoop.runPosted();
    EXPECT_EQ(openModule(), StatsModule::cpu);
    EXPECT_EQ(log.alive, 1);
}

TEST_F(PanelUnderStripTest, ClickOnTheOwnItemThroughTheShieldClosesAndDoesNotOpenAgain) {
    in(Session::WindowSystem::xwayland, Session::Desktop::gnome);
    clickCell("Velmora.cpu");
    ASSERT_EQ(openModule(), StatsModule::cpu);
    clickShieldAt(middleOf("Velmora.cpu"));
    runLoop.runPosted();
    EXPECT_EQ(openModule(), std::nullopt);
}

TEST_F(PanelUnderStripTest, ItemsThatAreNotShownHaveNoPlace) {
    EXPECT_EQ(strip.placeOf("Velmora.battery"), std::nullopt);
    strip.setItems({});
    EXPECT_EQ(strip.placeOf("Velmora.cpu"), std::nullopt);
}

TEST_F(PanelControllerTest, OnARealXServerThePanelIsAPopupWithoutAShield) {
    in(Session::WindowSystem::x11).toggle(StatsModule::cpu, kCell);
    EXPECT_EQ(controller().window()->windowType(), Qt::Popup);
    EXPECT_EQ(controller().shield(), nullptr);
}

TEST_F(PanelControllerTest, UnderXwaylandAShieldCoversEverythingButThePanel) {
    in(Session::WindowSystem::xwayland, Session::Desktop::plasma).toggle(StatsModule::cpu, kCell);
    const QWidget& panel = *controller().window();
    EXPECT_EQ(panel.windowType(), Qt::Tool);
    ASSERT_NE(controller().shield(), nullptr);
    const QWidget& shield = *controller().shield();
    EXPECT_TRUE(shield.isVisible());
    const QRegion covered = shield.mask().translated(shield.pos());
    EXPECT_TRUE(covered.intersected(panel.geometry()).isEmpty());
    EXPECT_EQ(covered.united(panel.geometry()), QRegion(QGuiApplication::primaryScreen()->virtualGeometry()));
}

TEST_F(PanelControllerTest, TheShieldsHoleFollowsThePanelsHeight) {
    in(Session::WindowSystem::xwayland, Session::Desktop::gnome).toggle(StatsModule::cpu, kCell);
    log.last->shown = panelOfCards(9);
    log.last->changed.fire();
    runLoop.runPosted();
    const QWidget& shield = *controller().shield();
    EXPECT_TRUE(
        shield.mask().translated(shield.pos()).intersected(controller().window()->geometry()).isEmpty());
}

TEST_F(PanelControllerTest, ClickOnTheShieldClosesBoth) {
    in(Session::WindowSystem::xwayland, Session::Desktop::gnome).toggle(StatsModule::cpu, kCell);
    clickShieldAt({10, 500});
    EXPECT_EQ(controller().window(), nullptr);
    EXPECT_EQ(controller().shield(), nullptr);
    runLoop.runPosted();
    EXPECT_EQ(log.alive, 0);
    for (const QWidget* widget : QApplication::topLevelWidgets()) EXPECT_FALSE(widget->isVisible());
}

TEST_F(PanelControllerTest, UnderXwaylandOnATilingDesktopThePanelIsUnmanaged) {
    in(Session::WindowSystem::xwayland, Session::Desktop::other).toggle(StatsModule::cpu, kCell);
    EXPECT_TRUE(controller().window()->windowFlags().testFlag(Qt::BypassWindowManagerHint));
    EXPECT_EQ(controller().window()->windowType(), Qt::Window) << "others do not get the keyboard";
    EXPECT_NE(controller().shield(), nullptr);
}

TEST_F(PanelControllerTest, OnWaylandThePanelIsAPlainWindowThatClosesWhenItLosesTheKeyboard) {
    in(Session::WindowSystem::wayland).toggle(StatsModule::cpu, kCell);
    EXPECT_EQ(controller().window()->windowType(), Qt::Window);
    EXPECT_EQ(controller().shield(), nullptr);
    loseKeyboard();
    EXPECT_EQ(openModule(), std::nullopt);
}

TEST_F(PanelControllerTest, ClickOnTheItemThatTookTheKeyboardDoesNotOpenAgain) {
    in(Session::WindowSystem::wayland).toggle(StatsModule::cpu, kCell);
    loseKeyboard();
    runLoop.advance(0.2);
    controller().toggle(StatsModule::cpu, kCell);
    EXPECT_EQ(openModule(), std::nullopt);
    controller().toggle(StatsModule::cpu, kCell);
    EXPECT_EQ(openModule(), StatsModule::cpu) << "the click after that is a new one";
}

TEST_F(PanelControllerTest, ClickOnTheItemLaterOpensAgain) {
    in(Session::WindowSystem::wayland).toggle(StatsModule::cpu, kCell);
    loseKeyboard();
    runLoop.advance(0.4);
    controller().toggle(StatsModule::cpu, kCell);
    EXPECT_EQ(openModule(), StatsModule::cpu);
}

TEST_F(PanelControllerTest, ClickOnAnotherItemThatTookTheKeyboardOpensItsPanel) {
    in(Session::WindowSystem::wayland).toggle(StatsModule::cpu, kCell);
    loseKeyboard();
    controller().toggle(StatsModule::memory, kOtherCell);
    EXPECT_EQ(openModule(), StatsModule::memory);
}

}  // namespace
}  // namespace velmora
