#include "platform/qt/strip/StripStatusBar.h"

#include "platform/qt/session/PrivateBus.h"
#include "platform/qt/strip/StripCell.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QCursor>
#include <QGuiApplication>
#include <QImage>
#include <QMenu>
#include <QMouseEvent>
#include <QScreen>

namespace velmora {
namespace {

const Session kSession{Session::WindowSystem::offscreen, Session::Desktop::other};
const StatusItem kCpu{"Velmora.cpu", "CPU", "Velmora — CPU", false, false};
const StatusItem kMemory{"Velmora.memory", "MEM", "Velmora — MEM", false, false};
const StatusItem kFallback{"Velmora.fallback", "Velmora", "Velmora", true, true};

ItemImage imageOf(int width, int height, std::uint32_t color, const std::string& label = {}) {
    const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    return {{{width, height, 1, std::vector<std::uint32_t>(count, color)}}, label};
}

/// Counts how often a widget is painted.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget* widget) { widget->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++count;
        return false;
    }
};

class StripStatusBarTest : public testing::Test {
protected:
    QList<StripCell*> cells() const {
        QList<StripCell*> cells = m_bar.window().findChildren<StripCell*>();
        cells.removeIf([](const StripCell* cell) { return cell->isHidden(); });
        std::ranges::sort(cells, {}, [](const StripCell* cell) { return cell->x(); });
        return cells;
    }
    StripCell* cell(int index) const { return cells().value(index); }
    void press(StripCell* target, Qt::MouseButton button = Qt::LeftButton) {
        QMouseEvent event(QEvent::MouseButtonPress, QPointF(5, 5), target->mapToGlobal(QPointF(5, 5)), button,
                          button, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &event);
    }
    QImage picture() { return const_cast<StripWindow&>(m_bar.window()).grab().toImage(); }

    StripStatusBar m_bar{kSession, StripWindow::Kind::dock};
};

TEST_F(StripStatusBarTest, StripWithoutItemsIsHidden) {
    EXPECT_FALSE(m_bar.window().isVisible());
    m_bar.setItems({kCpu});
    m_bar.setImage(kCpu.id, imageOf(60, 22, 0xFF000000));
    EXPECT_TRUE(m_bar.window().isVisible());
    m_bar.setItems({});
    EXPECT_FALSE(m_bar.window().isVisible());
}

TEST_F(StripStatusBarTest, StripIsShownInItsPlaceOnceEveryItemHasItsImage) {
    m_bar.setItems({kCpu, kMemory});
    m_bar.setImage(kCpu.id, imageOf(60, 22, 0xFF000000));
    EXPECT_FALSE(m_bar.window().isVisible());
    EXPECT_EQ(m_bar.window().windowHandle(), nullptr) << "the display knows no window without a place";
    // As wide as a cell without an image is taken to be, which is no change of width.
    m_bar.setImage(kMemory.id, imageOf(22, 22, 0xFF000000));
    EXPECT_TRUE(m_bar.window().isVisible());
    EXPECT_EQ(m_bar.window().width(), 66 + 28);
}

TEST_F(StripStatusBarTest, StripKeepsItsPlaceUntilANewItemHasItsImage) {
    m_bar.setItems({kMemory});
    m_bar.setImage(kMemory.id, imageOf(40, 22, 0xFF000000));
    m_bar.setItems({kCpu, kMemory});
    EXPECT_EQ(m_bar.window().width(), 46);
    m_bar.setImage(kCpu.id, imageOf(60, 22, 0xFF000000));
    EXPECT_EQ(m_bar.window().width(), 66 + 46);
}

TEST_F(StripStatusBarTest, CellsStandInOrderAndAreSixWiderThanTheirImages) {
    m_bar.setItems({kCpu, kMemory});
    m_bar.setImage(kCpu.id, imageOf(60, 22, 0xFF000000));
    m_bar.setImage(kMemory.id, imageOf(40, 22, 0xFF000000));
    ASSERT_EQ(cells().size(), 2);
    EXPECT_EQ(cell(0)->item().id, kCpu.id);
    EXPECT_EQ(cell(0)->geometry(), QRect(0, 0, 66, 26));
    EXPECT_EQ(cell(1)->geometry(), QRect(66, 0, 46, 26));
}

TEST_F(StripStatusBarTest, StripIsRightAlignedAtTheTopOfTheScreen) {
    m_bar.setItems({kCpu});
    m_bar.setImage(kCpu.id, imageOf(60, 22, 0xFF000000));
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(m_bar.window().geometry(),
              QRect(available.x() + available.width() - 66, available.y(), 66, 26));
}

TEST_F(StripStatusBarTest, ItemThatStaysKeepsItsCellAndImage) {
    m_bar.setItems({kMemory});
    m_bar.setImage(kMemory.id, imageOf(40, 22, 0xFF000000));
    const StripCell* const before = cell(0);
    m_bar.setItems({kCpu, kMemory});
    m_bar.setImage(kCpu.id, imageOf(60, 22, 0xFF000000));
    EXPECT_EQ(cell(1), before);
    EXPECT_EQ(cell(1)->imageWidth(), 40);
}

TEST_F(StripStatusBarTest, RemovedItemIsGoneAtOnceAndTheOthersCloseUp) {
    m_bar.setItems({kCpu, kMemory});
    m_bar.setImage(kCpu.id, imageOf(60, 22, 0xFF000000));
    m_bar.setImage(kMemory.id, imageOf(40, 22, 0xFF000000));
    m_bar.setItems({kMemory});
    ASSERT_EQ(cells().size(), 1);
    EXPECT_EQ(cell(0)->item().id, kMemory.id);
    EXPECT_EQ(cell(0)->geometry(), QRect(0, 0, 46, 26));
    EXPECT_EQ(m_bar.window().width(), 46);
}

TEST_F(StripStatusBarTest, ImageIsPaintedAsItIsInTheMiddleOfItsCell) {
    m_bar.setItems({kCpu});
    m_bar.setDark(true);
    m_bar.setImage(kCpu.id, imageOf(60, 22, 0xFF0A84FF));
    const QImage image = picture();
    const QColor blue(10, 132, 255);
    const QColor backdrop(42, 42, 45);
    EXPECT_EQ(image.pixelColor(3, 2), blue);
    EXPECT_EQ(image.pixelColor(62, 23), blue);
    EXPECT_EQ(image.pixelColor(2, 12), backdrop);
    EXPECT_EQ(image.pixelColor(63, 12), backdrop);
    EXPECT_EQ(image.pixelColor(30, 1), backdrop);
    EXPECT_EQ(image.pixelColor(30, 24), backdrop);
}

TEST_F(StripStatusBarTest, SmallIconIsPaintedInTheMiddle) {
    m_bar.setItems({kFallback});
    m_bar.setImage(kFallback.id, imageOf(16, 16, 0xFF000000));
    EXPECT_EQ(cell(0)->size(), QSize(22, 26));
    const QImage image = picture();
    EXPECT_EQ(image.pixelColor(3, 5), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(18, 20), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(3, 4), QColor(Qt::white));
}

TEST_F(StripStatusBarTest, TranslucentPixelsMixWithTheBackdrop) {
    m_bar.setItems({kCpu});
    m_bar.setImage(kCpu.id, imageOf(60, 22, 0x80000000));
    EXPECT_NEAR(picture().pixelColor(30, 12).red(), 127, 1);
}

TEST_F(StripStatusBarTest, CellStaysLitWhileItsPopupIsOpenAndNoLonger) {
    m_bar.setItems({kCpu});
    m_bar.setImage(kCpu.id, imageOf(60, 22, 0xFF000000));
    QCursor::setPos(QPoint(5, 500));
    QWidget popup(nullptr, Qt::Popup);
    const Subscription subscription =
        m_bar.activated.subscribe([&popup](const std::string&, const Anchor&) { popup.show(); });
    press(cell(0));
    EXPECT_TRUE(cell(0)->isHovered());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(cell(0), &leave);
    EXPECT_TRUE(cell(0)->isHovered()) << "the popup took the pointer";
    popup.hide();
    EXPECT_FALSE(cell(0)->isHovered()) << "the pointer had left meanwhile";
}

TEST_F(StripStatusBarTest, LeavingTheStripLeavesEveryCell) {
    m_bar.setItems({kCpu, kMemory});
    m_bar.setImage(kCpu.id, imageOf(60, 22, 0xFF000000));
    m_bar.setImage(kMemory.id, imageOf(60, 22, 0xFF000000));
    press(cell(0));
    ASSERT_TRUE(cell(0)->isHovered());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&const_cast<StripWindow&>(m_bar.window()), &leave);
    EXPECT_FALSE(cell(0)->isHovered());
}

TEST_F(StripStatusBarTest, BackdropFollowsTheShade) {
    int changes = 0;
    const Subscription subscription = m_bar.appearanceChanged.subscribe([&] { ++changes; });
    m_bar.setItems({kCpu});
    EXPECT_FALSE(m_bar.appearance().dark);
    EXPECT_EQ(picture().pixelColor(0, 0), QColor(Qt::white));
    m_bar.setDark(true);
    EXPECT_TRUE(m_bar.appearance().dark);
    EXPECT_EQ(picture().pixelColor(0, 0), QColor(42, 42, 45));
    EXPECT_EQ(changes, 1);
}

TEST_F(StripStatusBarTest, ImagesOfTheScreensRatioAreWanted) {
    EXPECT_EQ(m_bar.appearance(),
              (StatusBar::Appearance{
                  .dark = false, .square = false, .ratios = {m_bar.window().devicePixelRatioF()}}));
}

TEST_F(StripStatusBarTest, EqualPixelsAreNotPaintedAgain) {
    m_bar.setItems({kCpu});
    m_bar.setImage(kCpu.id, imageOf(60, 22, 0xFF000000));
    PaintCounter paints(cell(0));
    ASSERT_TRUE(waitUntil([&] { return paints.count > 0; }));
    QCoreApplication::processEvents();
    const int before = paints.count;
    m_bar.setImage(kCpu.id, imageOf(60, 22, 0xFF000000, "5%"));
    QCoreApplication::processEvents();
    EXPECT_EQ(paints.count, before);
    m_bar.setImage(kCpu.id, imageOf(60, 22, 0xFFFFFFFF));
    EXPECT_TRUE(waitUntil([&] { return paints.count > before; }));
}

TEST_F(StripStatusBarTest, AnyButtonActivatesTheCell) {
    m_bar.setItems({kCpu, kMemory});
    m_bar.setImage(kCpu.id, imageOf(60, 22, 0xFF000000));
    m_bar.setImage(kMemory.id, imageOf(40, 22, 0xFF000000));
    std::vector<std::pair<std::string, Anchor>> clicks;
    const Subscription subscription = m_bar.activated.subscribe(
        [&](const std::string& id, const Anchor& anchor) { clicks.emplace_back(id, anchor); });
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton})
        press(cell(1), button);
    ASSERT_EQ(clicks.size(), 3U);
    const QPoint corner = cell(1)->mapToGlobal(QPoint(0, 0));
    for (const auto& [id, anchor] : clicks) {
        EXPECT_EQ(id, kMemory.id);
        EXPECT_EQ(anchor, (Anchor{corner.x(), corner.y(), cell(1)->width(), 26}));
    }
}

TEST_F(StripStatusBarTest, ClickThatRemovesItsOwnCellIsHarmless) {
    m_bar.setItems({kCpu});
    m_bar.setImage(kCpu.id, imageOf(60, 22, 0xFF000000));
    const Subscription subscription =
        m_bar.activated.subscribe([&](const std::string&, const Anchor&) { m_bar.setItems({}); });
    press(cell(0));
    EXPECT_TRUE(waitUntil([&] { return m_bar.window().findChildren<StripCell*>().isEmpty(); }));
}

TEST_F(StripStatusBarTest, CellHasAToolTipAndANameForScreenReaders) {
    m_bar.setItems({kCpu});
    m_bar.setImage(kCpu.id, imageOf(60, 22, 0xFF000000, "42%"));
    EXPECT_EQ(cell(0)->toolTip(), QString::fromUtf8("Velmora — CPU"));
    EXPECT_EQ(cell(0)->accessibleName(), "CPU");
    QAccessibleInterface* const reader = QAccessible::queryAccessibleInterface(cell(0));
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->role(), QAccessible::Button);
    EXPECT_EQ(reader->text(QAccessible::Name), "CPU");
    EXPECT_EQ(reader->text(QAccessible::Description), "42%");
    int clicks = 0;
    const Subscription subscription =
        m_bar.activated.subscribe([&](const std::string&, const Anchor&) { ++clicks; });
    reader->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks, 1);
}

TEST_F(StripStatusBarTest, StripTakesNoFocusAndKeepsOutOfTheWindowList) {
    EXPECT_TRUE(m_bar.window().windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_TRUE(m_bar.window().testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_FALSE(m_bar.window().testAttribute(Qt::WA_QuitOnClose));
    EXPECT_FALSE(m_bar.window().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST_F(StripStatusBarTest, HoveredCellIsHighlighted) {
    m_bar.setItems({kCpu});
    m_bar.setImage(kCpu.id, imageOf(60, 22, 0));
    QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
    QCoreApplication::sendEvent(cell(0), &enter);
    EXPECT_LT(picture().pixelColor(10, 3).lightness(), 250);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(cell(0), &leave);
    EXPECT_EQ(picture().pixelColor(10, 3), QColor(Qt::white));
}

TEST_F(StripStatusBarTest, FallbackOpensItsMenu) {
    m_bar.menuEntries = [](const std::string&) {
        return std::vector<StatusMenuEntry>{
            {"menu.settings", "Settings & more", ","}, {}, {"menu.quit", "Quit", "q"}};
    };
    m_bar.setItems({kFallback});
    m_bar.setImage(kFallback.id, imageOf(16, 16, 0xFF000000));
    std::vector<std::string> chosen;
    int activations = 0;
    const Subscription choosing =
        m_bar.menuChosen.subscribe([&](const std::string& action) { chosen.push_back(action); });
    const Subscription activating =
        m_bar.activated.subscribe([&](const std::string&, const Anchor&) { ++activations; });
    press(cell(0));
    QMenu* const menu = m_bar.menu().menu();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 3);
    EXPECT_EQ(menu->actions()[0]->text(), "Settings && more");
    EXPECT_TRUE(menu->actions()[1]->isSeparator());
    EXPECT_EQ(menu->actions()[2]->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Q));
    EXPECT_GE(menu->y(), m_bar.window().y() + 26);
    menu->actions()[2]->trigger();
    ASSERT_TRUE(waitUntil([&] { return !chosen.empty(); }));
    EXPECT_EQ(chosen, std::vector<std::string>{"menu.quit"});
    EXPECT_EQ(activations, 0);
}

TEST(StripInATopBar, BackdropIsBlackOnADarkBar) {
    StripStatusBar bar(kSession, StripWindow::Kind::topBar);
    bar.setDark(true);
    bar.setItems({kCpu});
    EXPECT_EQ(const_cast<StripWindow&>(bar.window()).grab().toImage().pixelColor(0, 0), QColor(Qt::black));
    EXPECT_TRUE(bar.window().windowFlags().testFlag(Qt::BypassWindowManagerHint));
}

TEST(StripCell, ImageNearestToTheRatioIsTaken) {
    StripCell cell(nullptr, kCpu);
    ItemImage image;
    for (const int scale : {3, 2}) {
        image.pixels.push_back({60 * scale, 22 * scale, static_cast<double>(scale),
                                std::vector<std::uint32_t>(static_cast<std::size_t>(60 * scale) *
                                                           static_cast<std::size_t>(22 * scale))});
    }
    EXPECT_EQ(cell.setImage(image), StripCell::ImageChange::width);
    EXPECT_EQ(cell.imageWidth(), 60);
    EXPECT_EQ(cell.setImage(image), StripCell::ImageChange::none);
}

TEST(StripCell, ImageWithTooFewPixelsIsNotPainted) {
    StripCell cell(nullptr, kCpu);
    cell.setImage({{{60, 22, 1, std::vector<std::uint32_t>(7)}}, {}});
    EXPECT_EQ(cell.imageWidth(), 22);
    cell.grab();
}

}  // namespace
}  // namespace velmora
