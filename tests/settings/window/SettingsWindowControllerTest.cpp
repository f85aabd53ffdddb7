#include "settings/window/SettingsWindowController.h"

#include "settings/SettingsHouse.h"

#include "panels/kit/BlendScroller.h"
#include "settings/controls/SettingsScheme.h"
#include "settings/window/SettingsView.h"
#include "settings/window/SettingsWindow.h"

#include <gtest/gtest.h>

#include <QAbstractScrollArea>
#include <QCursor>
#include <QGuiApplication>
#include <QKeySequence>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QWindow>

namespace velmora {
namespace {

const QScreen& screenNamed(const char* name) {
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (screen->name() == QLatin1String(name)) return *screen;
    }
    throw std::runtime_error("no such screen");
}

/// Puts the pointer on a screen, and back again.
class PointerAt {
public:
    explicit PointerAt(const QScreen& screen) : m_before(QCursor::pos()) {
        QCursor::setPos(screen.geometry().center());
    }
    PointerAt(const PointerAt&) = delete;
    PointerAt& operator=(const PointerAt&) = delete;
    ~PointerAt() { QCursor::setPos(m_before); }

private:
    QPoint m_before;
};

class SettingsWindowControllerTest : public testing::Test {
protected:
    /// Shows the window and lets everything happen that this brings about.
    SettingsWindow& shown(std::optional<SettingsTab> tab = std::nullopt) {
        controller.show(tab);
        settle();
        return *controller.window();
    }
    void settle() {
        QCoreApplication::processEvents();
        house.runLoop.runPosted();
        SettingsHouse::sweep();
        QCoreApplication::processEvents();
    }
    void select(SettingsTab tab) {
        house.router.selectedTab.set(tab);
        settle();
    }

    const PointerAt pointer{screenNamed("usual")};
    SettingsHouse house;
    SettingsWindowController controller{house.collaborators()};
};

TEST_F(SettingsWindowControllerTest, NothingExistsUntilTheFirstShow) {
    EXPECT_EQ(controller.window(), nullptr);
    EXPECT_EQ(house.router.selectedTab.subscriberCount(), 0u);
    EXPECT_EQ(house.snapshot.subscriberCount(), 0u);
}

TEST_F(SettingsWindowControllerTest, CallingShowTwiceMakesOneWindowAndBringsItForwardEachTime) {
    SettingsWindow& first = shown();
    first.setWindowState(Qt::WindowMinimized);
    SettingsWindow& second = shown();
    EXPECT_EQ(&first, &second);
    EXPECT_TRUE(second.isVisible());
    EXPECT_FALSE(second.isMinimized());
    EXPECT_TRUE(second.isActiveWindow());
}

TEST_F(SettingsWindowControllerTest, TheFirstShowIsOnTheModulesWithTheirWidthInTheMiddle) {
    const SettingsWindow& window = shown();
    EXPECT_EQ(house.router.selectedTab.get(), SettingsTab::modules);
    EXPECT_EQ(window.size(), QSize(940, 560));
    const QRect screen = window.screen()->availableGeometry();
    EXPECT_NEAR(window.geometry().center().x(), screen.center().x(), 4);
    EXPECT_NEAR(window.geometry().center().y(), screen.center().y(), 24) << "with its title bar";
}

TEST_F(SettingsWindowControllerTest, ShowingATabSelectsItAndOpensWithItsWidth) {
    const SettingsWindow& window = shown(SettingsTab::about);
    EXPECT_EQ(house.router.selectedTab.get(), SettingsTab::about);
    EXPECT_EQ(window.size(), QSize(720, 560));
}

TEST_F(SettingsWindowControllerTest, ShowingWithoutATabReopensOnTheLastOneOfTheRun) {
    shown(SettingsTab::general).close();
    settle();
    ASSERT_EQ(controller.window(), nullptr);
    EXPECT_EQ(shown().width(), 720);
    EXPECT_EQ(house.router.selectedTab.get(), SettingsTab::general);
}

TEST_F(SettingsWindowControllerTest, AShownWindowFollowsATabThatOthersSelect) {
    const SettingsWindow& window = shown();
    select(SettingsTab::general);
    EXPECT_EQ(window.width(), 720);
    select(SettingsTab::modules);
    EXPECT_EQ(window.width(), 940);
}

TEST_F(SettingsWindowControllerTest, TheNewWidthComesAfterTheChangeOfTheContent) {
    const SettingsWindow& window = shown();
    house.router.selectedTab.set(SettingsTab::general);
    EXPECT_EQ(window.width(), 940);
    house.runLoop.runPosted();
    EXPECT_EQ(window.width(), 720);
}

TEST_F(SettingsWindowControllerTest, AWindowThatTheUserWidenedIsBroughtBackOnAChangeOfTab) {
    SettingsWindow& window = shown();
    window.resize(1200, 640);
    select(SettingsTab::general);
    EXPECT_EQ(window.size(), QSize(720, 640));
    window.resize(1000, 640);
    select(SettingsTab::modules);
    EXPECT_EQ(window.size(), QSize(940, 640));
}

TEST_F(SettingsWindowControllerTest, SelectingTheSameTabAgainLeavesTheUsersWidth) {
    SettingsWindow& window = shown();
    window.resize(1200, 640);
    select(SettingsTab::modules);
    EXPECT_EQ(window.width(), 1200);
}

TEST_F(SettingsWindowControllerTest, NearTheRightEdgeTheWindowMovesLeftAndStaysOnTheScreen) {
    SettingsWindow& window = shown(SettingsTab::general);
    const QRect screen = window.screen()->availableGeometry();
    window.move(screen.right() - window.frameGeometry().width(), 100);
    settle();
    const int top = window.y();
    select(SettingsTab::modules);
    EXPECT_EQ(window.width(), 940);
    EXPECT_LE(window.frameGeometry().right(), screen.right());
    EXPECT_GE(window.frameGeometry().left(), screen.left());
    EXPECT_EQ(window.y(), top);
}

TEST_F(SettingsWindowControllerTest, ReopeningResetsTheSizeAndThePlace) {
    SettingsWindow& window = shown(SettingsTab::general);
    const QRect opening = window.geometry();
    window.setGeometry(5, 40, 700, 800);
    window.close();
    settle();
    EXPECT_EQ(shown().geometry(), opening);
}

TEST_F(SettingsWindowControllerTest, ClosingDropsTheWindowAndEverythingThatItFollowed) {
    const QPointer<SettingsWindow> window = &shown();
    EXPECT_GT(house.snapshot.subscriberCount(), 0u);
    window->close();
    EXPECT_EQ(controller.window(), nullptr);
    settle();
    EXPECT_TRUE(window.isNull());
    EXPECT_EQ(house.snapshot.subscriberCount(), 0u);
    EXPECT_EQ(house.router.selectedTab.subscriberCount(), 0u);
    EXPECT_EQ(house.router.selectedModule.subscriberCount(), 0u);
    EXPECT_EQ(house.settings.enabledModules().subscriberCount(), 0u);
    EXPECT_EQ(house.settings.moduleColors().subscriberCount(), 0u);
    EXPECT_EQ(house.l10n.language().subscriberCount(), 0u);
    EXPECT_EQ(house.scheme.subscriberCount(), 0u);
}

TEST_F(SettingsWindowControllerTest, ATabChosenWhileTheWindowIsShutTakesEffectAtTheNextShow) {
    shown().close();
    settle();
    select(SettingsTab::about);
    EXPECT_EQ(controller.window(), nullptr);
    EXPECT_EQ(shown().width(), 720);
}

TEST_F(SettingsWindowControllerTest, ATabWithoutAPageLeavesTheSelectedOne) {
    const SettingsWindow& window = shown(SettingsTab::account);
    EXPECT_EQ(house.router.selectedTab.get(), SettingsTab::modules);
    EXPECT_EQ(window.width(), 940);
}

TEST_F(SettingsWindowControllerTest, AWindowThatIsClosedAndShownInOneTurnIsANewOne) {
    const QPointer<SettingsWindow> first = &shown();
    first->close();
    controller.show(std::nullopt);
    EXPECT_NE(controller.window(), first.data());
    settle();
    EXPECT_TRUE(first.isNull());
    EXPECT_TRUE(controller.window()->isVisible());
}

TEST_F(SettingsWindowControllerTest, TheKeyOfTheDesktopForClosingClosesIt) {
    SettingsWindow& window = shown();
    auto* const shortcut = window.findChild<QShortcut*>();
    ASSERT_TRUE(shortcut);
    EXPECT_EQ(shortcut->key(), QKeySequence(QKeySequence::Close));
    QMetaObject::invokeMethod(shortcut, "activated");
    EXPECT_EQ(controller.window(), nullptr);
}

TEST_F(SettingsWindowControllerTest, TheTitleAndTheIconAreTheProgramsInThePresentLanguage) {
    const SettingsWindow& window = shown();
    EXPECT_EQ(window.windowTitle(), "Settings");
    EXPECT_FALSE(window.windowIcon().isNull());
    house.speak(AppLanguage::de);
    EXPECT_EQ(window.windowTitle(), "Einstellungen");
}

TEST_F(SettingsWindowControllerTest, EveryScrollAreaHasOverlayScrollersAlsoInAPageThatBringsItsOwn) {
    SettingsCollaborators with = house.collaborators();
    with.pages = {{SettingsTab::about, [](QWidget* parent) -> QWidget* { return new QScrollArea(parent); }}};
    SettingsWindowController other(with);
    other.show(SettingsTab::about);
    house.runLoop.runPosted();
    const auto areas = other.window()->findChildren<QAbstractScrollArea*>();
    ASSERT_GE(areas.size(), 4);
    for (const QAbstractScrollArea* area : areas) {
        EXPECT_TRUE(qobject_cast<BlendScroller*>(area->verticalScrollBar()));
        EXPECT_TRUE(qobject_cast<BlendScroller*>(area->horizontalScrollBar()));
    }
}

TEST_F(SettingsWindowControllerTest, TheSchemeIsFollowedWhileTheWindowIsOpen) {
    SettingsWindow& window = shown();
    EXPECT_EQ(schemeOf(&window), Scheme::light);
    const QColor light = window.grab().toImage().pixelColor(window.width() - 20, window.height() - 5);
    house.scheme.set(Scheme::dark);
    EXPECT_EQ(schemeOf(&window), Scheme::dark);
    const QColor dark = window.grab().toImage().pixelColor(window.width() - 20, window.height() - 5);
    EXPECT_GT(light.lightness(), 200);
    EXPECT_LT(dark.lightness(), 60);
}

TEST_F(SettingsWindowControllerTest, OnAScreenSmallerThanTheContentTheWindowFitsAndScrolls) {
    const PointerAt onSmall(screenNamed("small"));
    SettingsWindow& window = shown();
    const QRect small = screenNamed("small").availableGeometry();
    EXPECT_TRUE(small.contains(window.frameGeometry())) << "on the screen where the pointer is";
    EXPECT_LE(window.minimumWidth(), window.width());
    auto* const scroll = window.findChild<QScrollArea*>();
    ASSERT_TRUE(scroll);
    EXPECT_EQ(window.view().width(), 880) << "the content keeps its least width";
    EXPECT_EQ(scroll->horizontalScrollBar()->maximum(), 880 - window.width());
    EXPECT_EQ(window.view().height(), window.height()) << "its height is the window's";
}

TEST_F(SettingsWindowControllerTest, OnASmallScreenAChangeOfTabStaysOnTheScreen) {
    const PointerAt onSmall(screenNamed("small"));
    const SettingsWindow& window = shown(SettingsTab::general);
    select(SettingsTab::modules);
    select(SettingsTab::about);
    EXPECT_TRUE(screenNamed("small").availableGeometry().contains(window.frameGeometry()));
}

TEST_F(SettingsWindowControllerTest, AChangeOfPixelRatioWhileOpenDrawsEveryPageAsOpenedThere) {
    for (const SettingsTab tab : {SettingsTab::modules, SettingsTab::general, SettingsTab::about}) {
        house.router.selectedTab.set(tab);
        SettingsWindow& moved = shown();
        ASSERT_EQ(moved.devicePixelRatioF(), 1);
        const QImage before = moved.grab().toImage();
        moved.windowHandle()->setScreen(const_cast<QScreen*>(&screenNamed("dense")));
        settle();
        ASSERT_EQ(moved.devicePixelRatioF(), 2);
        const QImage after = moved.grab().toImage();
        EXPECT_EQ(after.size(), before.size() * 2) << "the same points, in twice the pixels";
        moved.close();
        settle();

        const PointerAt onDense(screenNamed("dense"));
        SettingsWindow& opened = shown();
        ASSERT_EQ(opened.devicePixelRatioF(), 2);
        EXPECT_EQ(after, opened.grab().toImage()) << "nothing is left of the coarser pictures";
        opened.close();
        settle();
    }
}

TEST_F(SettingsWindowControllerTest, AWindowOfAHandfulOfPointsScrollsBothWays) {
    SettingsWindow& window = shown();
    window.setMinimumSize(1, 1);
    for (const QSize size : {QSize(300, 100), QSize(1, 1), QSize(0, 0)}) {
        window.resize(size);
        settle();
        EXPECT_EQ(window.view().size(), QSize(880, 240));
    }
}

TEST_F(SettingsWindowControllerTest, WithoutABlurTheSidebarIsOpaque) {
    SettingsWindow& window = shown();
    EXPECT_FALSE(window.testAttribute(Qt::WA_TranslucentBackground));
    EXPECT_TRUE(house.blur.areas.empty());
    EXPECT_EQ(window.grab().toImage().pixelColor(100, 300).alpha(), 255);
}

TEST_F(SettingsWindowControllerTest, WithABlurTheFirstSidebarAloneIsSeeThrough) {
    house.blur.setAvailable(true);
    SettingsWindow& window = shown();
    ASSERT_TRUE(window.testAttribute(Qt::WA_TranslucentBackground));
    ASSERT_FALSE(house.blur.areas.empty());
    EXPECT_EQ(house.blur.areas.back(), (WindowBlur::Area{0, 0, 220, 560}));
    QImage picture(window.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    window.render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
    EXPECT_LT(picture.pixelColor(3, 540).alpha(), 255);
    EXPECT_EQ(picture.pixelColor(300, 540).alpha(), 255) << "the second sidebar";
    EXPECT_EQ(picture.pixelColor(900, 540).alpha(), 255) << "the page";
    window.resize(940, 700);
    EXPECT_EQ(house.blur.areas.back().height, 700);
}

TEST_F(SettingsWindowControllerTest, ABlurThatEndsMakesTheSidebarOpaqueAtOnce) {
    house.blur.setAvailable(true);
    SettingsWindow& window = shown();
    house.blur.setAvailable(false);
    EXPECT_EQ(house.blur.areas.back(), WindowBlur::Area{});
    QImage picture(window.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    window.render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
    EXPECT_EQ(picture.pixelColor(3, 540).alpha(), 255);
}

TEST_F(SettingsWindowControllerTest, AButtonOfAPageMayChangeTheTab) {
    SettingsCollaborators with = house.collaborators();
    with.pages.push_back({SettingsTab::account, [this](QWidget* parent) -> QWidget* {
                              auto* const button = new QPushButton(parent);
                              QObject::connect(button, &QPushButton::clicked, button, [this] {
                                  house.router.selectedTab.set(SettingsTab::modules);
                              });
                              return button;
                          }});
    SettingsWindowController other(with);
    other.show(SettingsTab::account);
    auto* const button = other.window()->findChild<QPushButton*>();
    ASSERT_TRUE(button);
    button->click();
    settle();
    EXPECT_EQ(other.window()->width(), 940);
    EXPECT_FALSE(other.window()->findChild<QPushButton*>());
}

}  // namespace
}  // namespace velmora
