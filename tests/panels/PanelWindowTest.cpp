#include "panels/PanelWindow.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeMenuView.h"
#include "fakes/FakeRunLoop.h"
#include "panels/PanelAccessibility.h"
#include "panels/kit/PanelWidget.h"
#include "panels/kit/ProcessIcons.h"
#include "platform/ProcessIconSource.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>

namespace velmora {
namespace {

constexpr DesktopRect kScreen{0, 0, 1280, 720};
constexpr DesktopRect kBelowBar{0, 26, 1280, 694};
constexpr Anchor kAtTop{500, 0, 66, 26};
constexpr Anchor kAtBottom{500, 700, 66, 20};

class NoIcons final : public ProcessIconSource {
public:
    std::optional<std::string> iconOf(std::int32_t) override { return std::nullopt; }
};

class PanelWindowTest : public testing::Test {
protected:
    /// A window over content that `content()` gives from then on.
    PanelWindow& make(MenuPanel panel, PanelWindow::Manner manner = {}) {
        auto view = std::make_unique<FakeMenuView>(StatsModule::cpu, log);
        view->shown = std::move(panel);
        m_window = std::make_unique<PanelWindow>(std::move(view), scheme, icons, runLoop, manner);
        return *m_window;
    }
    PanelWindow& open(MenuPanel panel, PanelWindow::Manner manner = {}) {
        make(std::move(panel), manner).open(kAtTop, kScreen, kBelowBar);
        return *m_window;
    }
    FakeMenuView& content() { return *log.last; }
    void show(MenuPanel panel) {
        content().shown = std::move(panel);
        content().changed.fire();
        runLoop.runPosted();
    }
    PanelWidget& panelWidget() { return *m_window->findChild<PanelWidget*>(); }
    QScrollBar& scrollBar() { return *m_window->findChild<QScrollArea*>()->verticalScrollBar(); }
    QImage picture() { return m_window->grab().toImage(); }
    /// As a grabbed key comes: to what has the focus in the popup.
    void press(Qt::Key key) {
        QWidget* const focused = m_window->focusWidget() ? m_window->focusWidget() : m_window.get();
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QCoreApplication::sendEvent(focused, &event);
        }
    }
    void click(QPoint at) {
        QMouseEvent event(QEvent::MouseButtonPress, QPointF(at), QPointF(m_window->mapToGlobal(at)),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_window.get(), &event);
    }

    FakeMenuView::Log log;
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    Published<Scheme> scheme{Scheme::dark};
    NoIcons iconSource;
    ProcessIcons icons{iconSource};

private:
    std::unique_ptr<PanelWindow> m_window;
};

TEST_F(PanelWindowTest, WindowIsThreeHundredWideAndAsHighAsThePanelWithItsLine) {
    const PanelWindow& window = open(panelOfCards(2));
    EXPECT_EQ(window.geometry().topLeft(), QPoint(500, 30));
    EXPECT_EQ(window.width(), 300);
    EXPECT_EQ(window.height(), panelWidget().sizeHint().height() + 2);
    EXPECT_EQ(panelWidget().width(), 300);
}

TEST_F(PanelWindowTest, WindowHasOneBackdropThatCoversIt) {
    const PanelWindow& window = open(panelOfCards(1));
    const auto backdrops = window.findChildren<PanelBackdrop*>();
    ASSERT_EQ(backdrops.size(), 1);
    EXPECT_EQ(backdrops.first()->geometry(), window.rect());
    EXPECT_EQ(window.children().first(), backdrops.first()) << "below everything else";
}

TEST_F(PanelWindowTest, GroundIsDarkOrWhiteAndFollowsTheSchemeWhileOpen) {
    open(panelOfCards(0));
    const QPoint between(150, 3);
    EXPECT_EQ(picture().pixelColor(between), QColor(42, 42, 45));
    scheme.set(Scheme::light);
    EXPECT_EQ(picture().pixelColor(between), QColor(255, 255, 255));
}

TEST_F(PanelWindowTest, AHairLineRunsAroundThePanel) {
    const PanelWindow& window = open(panelOfCards(3), {.corners = PanelBackdrop::Corners::square});
    const QImage image = picture();
    const QColor ground(42, 42, 45);
    for (const QPoint onLine :
         {QPoint(150, 0), QPoint(150, window.height() - 1), QPoint(0, 20), QPoint(299, 20)}) {
        EXPECT_GT(image.pixelColor(onLine).lightness(), ground.lightness())
            << onLine.x() << "," << onLine.y();
    }
    EXPECT_EQ(image.pixelColor(1, 20), ground);
    EXPECT_EQ(image.pixelColor(150, 1), ground);
}

TEST_F(PanelWindowTest, CornersAreRoundWhereTheScreenIsComposited) {
    open(panelOfCards(1), {.corners = PanelBackdrop::Corners::round});
    EXPECT_EQ(picture().convertToFormat(QImage::Format_ARGB32).pixelColor(0, 0).alpha(), 0);
}

TEST_F(PanelWindowTest, CornersAreSquareElsewhere) {
    const PanelWindow& window = open(panelOfCards(1), {.corners = PanelBackdrop::Corners::square});
    EXPECT_FALSE(window.testAttribute(Qt::WA_TranslucentBackground));
    EXPECT_NE(picture().pixelColor(0, 0), QColor(Qt::black));
}

TEST_F(PanelWindowTest, ChangesOfOneTurnAreShownOnce) {
    open(panelOfCards(1));
    const int before = log.asked;
    content().changed.fire();
    content().changed.fire();
    content().changed.fire();
    EXPECT_EQ(log.asked, before) << "not inside the change";
    runLoop.runPosted();
    EXPECT_EQ(log.asked, before + 1);
    content().changed.fire();
    runLoop.runPosted();
    EXPECT_EQ(log.asked, before + 2);
}

TEST_F(PanelWindowTest, ChangeAfterClosingIsNotShown) {
    PanelWindow& window = open(panelOfCards(1));
    content().changed.fire();
    window.close();
    const int before = log.asked;
    runLoop.runPosted();
    EXPECT_EQ(log.asked, before);
}

TEST_F(PanelWindowTest, PanelBelowItsAnchorGrowsDownwards) {
    const PanelWindow& window = open(panelOfCards(2));
    const QRect before = window.geometry();
    show(panelOfCards(5));
    EXPECT_EQ(window.geometry().topLeft(), before.topLeft());
    EXPECT_EQ(window.width(), 300);
    EXPECT_GT(window.height(), before.height());
    EXPECT_EQ(window.height(), panelWidget().sizeHint().height() + 2);
    show(panelOfCards(1));
    EXPECT_EQ(window.geometry().topLeft(), before.topLeft());
    EXPECT_LT(window.height(), before.height());
}

TEST_F(PanelWindowTest, PanelAboveItsAnchorGrowsUpwards) {
    PanelWindow& window = make(panelOfCards(2));
    window.open(kAtBottom, kScreen, {0, 0, 1280, 700});
    const QRect before = window.geometry();
    EXPECT_EQ(before.bottom() + 1, 696);
    show(panelOfCards(5));
    EXPECT_EQ(window.geometry().bottom(), before.bottom());
    EXPECT_LT(window.geometry().top(), before.top());
}

TEST_F(PanelWindowTest, EachPlaceIsTold) {
    PanelWindow& window = make(panelOfCards(2));
    std::vector<QRect> places;
    window.placed = [&](const QRect& geometry) { places.push_back(geometry); };
    window.open(kAtTop, kScreen, kBelowBar);
    ASSERT_EQ(places.size(), 1u);
    EXPECT_EQ(places[0], window.geometry());
    show(panelOfCards(2));
    EXPECT_EQ(places.size(), 1u);
    show(panelOfCards(3));
    ASSERT_EQ(places.size(), 2u);
    EXPECT_EQ(places[1], window.geometry());
}

TEST_F(PanelWindowTest, PanelTallerThanTheScreenStaysOnItAndScrolls) {
    const PanelWindow& window = open(panelOfCards(60));
    EXPECT_EQ(window.geometry(), QRect(500, 30, 300, 720 - 4 - 30));
    EXPECT_GT(panelWidget().height(), window.height());
    EXPECT_EQ(panelWidget().mapTo(&window, QPoint()).y(), 1);
    press(Qt::Key_End);
    EXPECT_EQ(panelWidget().mapTo(&window, QPoint()).y() + panelWidget().height(), window.height() - 1);
    press(Qt::Key_Home);
    EXPECT_EQ(panelWidget().mapTo(&window, QPoint()).y(), 1);
    press(Qt::Key_PageDown);
    EXPECT_LT(panelWidget().mapTo(&window, QPoint()).y(), -100);
}

TEST_F(PanelWindowTest, PanelThatFitsDoesNotScroll) {
    open(panelOfCards(3));
    EXPECT_EQ(scrollBar().maximum(), 0);
}

TEST_F(PanelWindowTest, ScrollBarTakesNoRoomFromThePanel) {
    const PanelWindow& window = open(panelOfCards(60));
    EXPECT_EQ(window.findChild<QScrollArea*>()->viewport()->width(), 300);
}

TEST_F(PanelWindowTest, EscapeCloses) {
    PanelWindow& window = open(panelOfCards(1));
    int closed = 0;
    window.closed = [&] { ++closed; };
    press(Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(closed, 1);
}

TEST_F(PanelWindowTest, EscapeClosesFromAFocusedButton) {
    PanelWindow& window = open(panelOfCards(1));
    press(Qt::Key_Tab);
    ASSERT_NE(window.focusWidget(), nullptr);
    press(Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(PanelWindowTest, ClosingIsToldOnce) {
    PanelWindow& window = open(panelOfCards(1));
    int closed = 0;
    window.closed = [&] { ++closed; };
    window.close();
    window.close();
    EXPECT_EQ(closed, 1);
}

TEST_F(PanelWindowTest, TabReachesTheFooterButtonsAndEnterPressesThem) {
    int pressed = 0;
    MenuPanel panel = panelOfCards(2, [&] { ++pressed; });
    int other = 0;
    panel.footer.shortcuts.insert(
        panel.footer.shortcuts.begin(),
        FooterShortcut{"monitor", "waveform.path.ecg", "Monitor", false, [&] { ++other; }});
    const PanelWindow& window = open(std::move(panel));
    press(Qt::Key_Tab);
    EXPECT_TRUE(qobject_cast<QAbstractButton*>(window.focusWidget()));
    press(Qt::Key_Return);
    EXPECT_EQ(other, 1);
    press(Qt::Key_Tab);
    press(Qt::Key_Enter);
    EXPECT_EQ(pressed, 1);
    press(Qt::Key_Tab);
    press(Qt::Key_Space);
    EXPECT_EQ(other, 2) << "round to the first one";
}

TEST_F(PanelWindowTest, ButtonThatGetsTheFocusIsScrolledIntoSight) {
    const PanelWindow& window = open(panelOfCards(60));
    press(Qt::Key_Tab);
    const QWidget* const button = window.focusWidget();
    ASSERT_NE(button, nullptr);
    const QRect onWindow(button->mapTo(&window, QPoint()), button->size());
    EXPECT_TRUE(window.rect().contains(onWindow));
}

TEST_F(PanelWindowTest, FocusStaysOverAnUpdate) {
    const PanelWindow& window = open(panelOfCards(2));
    press(Qt::Key_Tab);
    const QWidget* const button = window.focusWidget();
    ASSERT_NE(button, nullptr);
    show(panelOfCards(2));
    EXPECT_EQ(window.focusWidget(), button);
}

TEST_F(PanelWindowTest, ClickInsideIsNoClickElsewhere) {
    PanelWindow& window = open(panelOfCards(1));
    int elsewhere = 0;
    window.pressedOutside = [&](QPoint) { ++elsewhere; };
    click({2, 2});
    EXPECT_EQ(elsewhere, 0);
    EXPECT_TRUE(window.isVisible());
}

TEST_F(PanelWindowTest, ClickElsewhereIsToldWithItsPoint) {
    PanelWindow& window = open(panelOfCards(1));
    std::vector<QPoint> points;
    window.pressedOutside = [&](QPoint at) { points.push_back(at); };
    click({-100, 20});
    EXPECT_EQ(points, (std::vector<QPoint>{{400, 50}}));
}

TEST_F(PanelWindowTest, LostKeyboardIsToldByManagedWindows) {
    using Kind = PanelWindow::Kind;
    for (const Kind kind : {Kind::popup, Kind::tool, Kind::unmanaged, Kind::plain}) {
        PanelWindow& window = open(panelOfCards(1), {.kind = kind});
        int lost = 0;
        window.deactivated = [&] { ++lost; };
        QEvent event(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(&window, &event);
        EXPECT_EQ(lost, kind == Kind::tool || kind == Kind::plain ? 1 : 0);
    }
}

TEST_F(PanelWindowTest, WindowThatTheCompositorPlacesHasOneSizeAndFollowsItsContent) {
    PanelWindow& window = open(panelOfCards(1), {.kind = PanelWindow::Kind::plain});
    const QSize before = window.size();
    EXPECT_EQ(window.minimumSize(), before);
    EXPECT_EQ(window.maximumSize(), before);
    show(panelOfCards(3));
    EXPECT_GT(window.height(), before.height());
    EXPECT_EQ(window.minimumSize(), window.size());
    EXPECT_EQ(window.maximumSize(), window.size());
}

TEST_F(PanelWindowTest, WindowIsCalledAsItsPanel) {
    PanelWindow& window = open(panelOfCards(1));
    const QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(&window);
    EXPECT_EQ(accessible->text(QAccessible::Name), "Processor");
    MenuPanel renamed = panelOfCards(1);
    renamed.name = "Prozessor";
    show(std::move(renamed));
    EXPECT_EQ(accessible->text(QAccessible::Name), "Prozessor");
}

TEST_F(PanelWindowTest, OpenPopupIsAmongWhatScreenReadersSeeOfTheApplication) {
    // What an earlier test may have asked for is kept.
    QAccessible::deleteAccessibleInterface(
        QAccessible::uniqueId(QAccessible::queryAccessibleInterface(qApp)));
    installPanelAccessibility();
    const QAccessibleInterface* const application = QAccessible::queryAccessibleInterface(qApp);
    const int before = application->childCount();
    PanelWindow& window = open(panelOfCards(1));
    ASSERT_EQ(application->childCount(), before + 1);
    const QAccessibleInterface* const panel = application->child(before);
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(panel->object(), &window);
    EXPECT_EQ(panel->role(), QAccessible::Dialog);
    EXPECT_EQ(application->indexOfChild(panel), before);
    EXPECT_EQ(application->child(before + 1), nullptr);
    window.close();
    EXPECT_EQ(application->childCount(), before);
}

TEST_F(PanelWindowTest, PanelWithoutCardsIsShown) {
    const PanelWindow& window = open(MenuPanel{});
    EXPECT_EQ(window.width(), 300);
    EXPECT_GE(window.height(), 2);
}

TEST_F(PanelWindowTest, ScreenWithoutRoomLeavesAnEmptyWindow) {
    PanelWindow& window = make(panelOfCards(2));
    window.open({}, {}, {});
    EXPECT_TRUE(window.size().isEmpty());
    show(panelOfCards(9));
    EXPECT_TRUE(window.size().isEmpty());
}

}  // namespace
}  // namespace velmora
