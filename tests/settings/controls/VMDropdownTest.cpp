#include "settings/controls/VMDropdown.h"

#include "settings/Descendants.h"
#include "settings/Input.h"
#include "settings/PaintCounter.h"
#include "settings/controls/PillMenu.h"
#include "settings/controls/PulldownPill.h"
#include "settings/controls/SettingsScheme.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QScreen>
#include <QWidget>

#include <memory>
#include <string>
#include <vector>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class VMDropdownTest : public testing::Test {
protected:
    VMDropdownTest() {
        window.setGeometry(100, 100, 400, 200);
        dropdown = new VMDropdown(&window);
        dropdown->setFixedSize(150, 28);
        dropdown->move(40, 20);
        dropdown->setOptions({{"1", "1 s"}, {"2", "2 s"}, {"5", "Five"}, {"10", "Ten"}});
        dropdown->setSelection("2");
        dropdown->onPick([this](const std::string& value) { picks.push_back(value); });
        window.show();
    }

    PillMenu& open() {
        Input::click(dropdown->pill());
        return *dropdown->menu();
    }
    std::vector<std::string> titlesOfOnItems(const PillMenu& menu) {
        std::vector<std::string> titles;
        for (const QAction* action : menu.actions()) {
            if (action->isChecked()) titles.push_back(action->text().toStdString());
        }
        return titles;
    }
    static QImage picture(int width, int height, Qt::GlobalColor color, double ratio = 1) {
        QImage image(QSize(width, height) * ratio, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        image.fill(color);
        return image;
    }

    QWidget window;
    VMDropdown* dropdown = nullptr;
    std::vector<std::string> picks;
};

TEST_F(VMDropdownTest, PillShowsTheTitleOfTheSelection) {
    EXPECT_EQ(dropdown->pill().label(), "2 s");
    dropdown->setSelection("10");
    EXPECT_EQ(dropdown->pill().label(), "Ten");
}

TEST_F(VMDropdownTest, SelectionOutsideTheOptionsShowsAnEmptyPillAndNoItemIsOn) {
    dropdown->setSelection("7");
    EXPECT_EQ(dropdown->pill().label(), "");
    EXPECT_THAT(titlesOfOnItems(open()), IsEmpty());
}

TEST_F(VMDropdownTest, FirstOfTwoOptionsWithOneValueGivesTheTitle) {
    dropdown->setOptions({{"2", "first"}, {"2", "second"}});
    EXPECT_EQ(dropdown->pill().label(), "first");
}

TEST_F(VMDropdownTest, ClickOnThePillsLabelOpensTheMenu) {
    EXPECT_FALSE(dropdown->isOpen());
    Input::click(dropdown->pill(), QPoint(60, 14));
    EXPECT_TRUE(dropdown->isOpen());
}

TEST_F(VMDropdownTest, MenuHasTheOptionsInOrderAndTheSelectedOneIsOn) {
    const PillMenu& menu = open();
    std::vector<std::string> titles;
    for (const QAction* action : menu.actions()) titles.push_back(action->text().toStdString());
    EXPECT_THAT(titles, ElementsAre("1 s", "2 s", "Five", "Ten"));
    EXPECT_THAT(titlesOfOnItems(menu), ElementsAre("2 s"));
}

TEST_F(VMDropdownTest, MenuOpensFourPointsBelowThePillAndIsAtLeastAsWide) {
    const PillMenu& menu = open();
    EXPECT_EQ(menu.pos(), dropdown->mapToGlobal(QPoint(0, 28 + 4)));
    EXPECT_GE(menu.width(), 150);
}

TEST_F(VMDropdownTest, MenuAtTheScreensEdgesStaysOnTheScreen) {
    const QRect screen = window.screen()->availableGeometry();
    for (const QPoint corner :
         {screen.bottomRight() - QPoint(190, 50), screen.bottomLeft() - QPoint(60, 50)}) {
        window.move(corner);
        const PillMenu& menu = open();
        EXPECT_TRUE(screen.contains(menu.geometry()));
        dropdown->menu()->close();
    }
}

TEST_F(VMDropdownTest, MenuHigherThanTheScreenScrolls) {
    std::vector<VMDropdown::Option> many;
    for (int index = 0; index < 200; ++index)
        many.push_back({"a" + std::string(static_cast<size_t>(index), 'x'), "x"});
    dropdown->setOptions(many);
    const PillMenu& menu = open();
    EXPECT_EQ(menu.actions().size(), 200);
    EXPECT_LE(menu.height(), window.screen()->availableGeometry().height());
}

TEST_F(VMDropdownTest, PickedItemsValueIsWrittenOnceAndThePillWaitsForTheSelection) {
    PillMenu& menu = open();
    Input::click(menu, menu.actionGeometry(menu.actions()[2]).center());
    EXPECT_THAT(picks, ElementsAre("5"));
    EXPECT_FALSE(dropdown->isOpen());
    EXPECT_EQ(dropdown->pill().label(), "2 s");
}

TEST_F(VMDropdownTest, PickOfTheSelectedItemIsWrittenToo) {
    open().actions()[1]->trigger();
    EXPECT_THAT(picks, ElementsAre("2"));
}

TEST_F(VMDropdownTest, PickSeesTheNewestOptionsAndAction) {
    PillMenu& menu = open();
    dropdown->setOptions({{"a", "A"}, {"b", "B"}});
    std::string last;
    dropdown->onPick([&](const std::string& value) { last = value; });
    menu.actions()[1]->trigger();
    EXPECT_EQ(last, "b");
    EXPECT_THAT(picks, IsEmpty());
}

TEST_F(VMDropdownTest, PickWithoutAnActionDoesNothing) {
    dropdown->onPick(nullptr);
    open().actions()[0]->trigger();
    EXPECT_EQ(dropdown->selection(), "2");
}

TEST_F(VMDropdownTest, ActionMayTakeTheDropdownAway) {
    dropdown->onPick([this](const std::string& value) {
        picks.push_back(value);
        dropdown->deleteLater();
    });
    open().actions()[0]->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_THAT(picks, ElementsAre("1"));
}

TEST_F(VMDropdownTest, ArrowsAndEnterPick) {
    PillMenu& menu = open();
    for (int step = 0; step < 3; ++step) Input::key(menu, Qt::Key_Down);
    Input::key(menu, Qt::Key_Return);
    EXPECT_THAT(picks, ElementsAre("5"));
}

TEST_F(VMDropdownTest, EscapeClosesTheMenuWithoutAPick) {
    PillMenu& menu = open();
    Input::key(menu, Qt::Key_Down);
    Input::key(menu, Qt::Key_Escape);
    EXPECT_FALSE(dropdown->isOpen());
    EXPECT_THAT(picks, IsEmpty());
}

TEST_F(VMDropdownTest, FirstLettersGoToTheItem) {
    PillMenu& menu = open();
    Input::key(menu, Qt::Key_T, QStringLiteral("t"));
    ASSERT_NE(menu.activeAction(), nullptr);
    EXPECT_EQ(menu.activeAction()->text(), "Ten");
    Input::key(menu, Qt::Key_Return);
    EXPECT_THAT(picks, ElementsAre("10"));
}

TEST_F(VMDropdownTest, KeyboardOpensTheMenuFromThePill) {
    Input::key(dropdown->pill(), Qt::Key_Down);
    EXPECT_TRUE(dropdown->isOpen());
}

TEST_F(VMDropdownTest, ItemHasTheImageOfItsValueOnly) {
    dropdown->setOptionImages({{"2", picture(40, 22, Qt::red)}, {"5", QImage()}});
    const PillMenu& menu = open();
    EXPECT_TRUE(menu.actions()[0]->icon().isNull());
    EXPECT_FALSE(menu.actions()[1]->icon().isNull());
    EXPECT_TRUE(menu.actions()[2]->icon().isNull()) << "a null image is none";
}

TEST_F(VMDropdownTest, ImageIsDrawnInItsOwnSizeAndAtItsRatio) {
    dropdown->setOptionImages({{"1", picture(40, 22, Qt::red, 2)}});
    PillMenu& menu = open();
    const QImage shown = menu.grab().toImage();
    int red = 0;
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) red += shown.pixelColor(x, y) == QColor(Qt::red) ? 1 : 0;
    }
    EXPECT_EQ(red, 40 * 22);
    EXPECT_GE(menu.actionGeometry(menu.actions()[0]).height(), 22);
}

TEST_F(VMDropdownTest, TitlesBeginAtOnePlaceBehindTheWidestImage) {
    dropdown->setOptionImages({{"1", picture(40, 22, Qt::red)}, {"2", picture(90, 22, Qt::red)}});
    const PillMenu& menu = open();
    EXPECT_EQ(menu.actionGeometry(menu.actions()[0]).width(), menu.actionGeometry(menu.actions()[3]).width());
    EXPECT_GT(menu.width(), 90 + 40);
}

TEST_F(VMDropdownTest, OpenMenuSurvivesNewImagesAndKeepsItsPlaceAndHighlight) {
    dropdown->setOptionImages({{"2", picture(40, 22, Qt::red)}});
    PillMenu& menu = open();
    Input::key(menu, Qt::Key_Down);
    QAction* const highlighted = menu.activeAction();
    const QPoint place = menu.pos();
    dropdown->setOptionImages({{"2", picture(40, 22, Qt::green)}});
    EXPECT_EQ(dropdown->menu(), &menu);
    EXPECT_EQ(menu.activeAction(), highlighted);
    EXPECT_EQ(menu.pos(), place);
    const QIcon& icon = menu.actions()[1]->icon();
    EXPECT_EQ(icon.pixmap(icon.availableSizes().constFirst(), 1.0).toImage().pixelColor(5, 5),
              QColor(Qt::green));
}

TEST_F(VMDropdownTest, OpenMenuFollowsTitlesAndSelection) {
    PillMenu& menu = open();
    dropdown->setOptions({{"1", "une"}, {"2", "deux"}});
    dropdown->setSelection("1");
    ASSERT_EQ(menu.actions().size(), 2);
    EXPECT_EQ(menu.actions()[1]->text(), "deux");
    EXPECT_THAT(titlesOfOnItems(menu), ElementsAre("une"));
}

TEST_F(VMDropdownTest, OpenIsToldBeforeTheMenuIsMade) {
    dropdown->onOpen([this] {
        EXPECT_FALSE(dropdown->isOpen());
        dropdown->setOptionImages({{"1", picture(10, 10, Qt::red)}});
    });
    EXPECT_FALSE(open().actions()[0]->icon().isNull());
}

TEST_F(VMDropdownTest, MenuIsMadeAnewOnEachOpeningAndGoneAfterwards) {
    for (int round = 0; round < 50; ++round) {
        Input::key(open(), Qt::Key_Escape);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(descendants<PillMenu>(window).empty());
    }
}

TEST_F(VMDropdownTest, PageThatGoesTakesTheMenuAlong) {
    open();
    dropdown->hide();
    EXPECT_FALSE(dropdown->isOpen());
}

TEST_F(VMDropdownTest, DropdownMayGoWhileItsMenuIsOpen) {
    open();
    delete dropdown;
    EXPECT_TRUE(descendants<PillMenu>(window).empty());
}

TEST_F(VMDropdownTest, AmpersandInATitleIsNoMnemonic) {
    dropdown->setOptions({{"2", "Tom & Jerry"}});
    EXPECT_EQ(dropdown->pill().label(), "Tom & Jerry");
    EXPECT_EQ(open().actions()[0]->text(), "Tom && Jerry");
}

TEST_F(VMDropdownTest, NoOptionsAndVeryLongTitlesDoNoHarm) {
    dropdown->setOptions({});
    EXPECT_EQ(dropdown->pill().label(), "");
    open();
    if (dropdown->menu()) dropdown->menu()->close();
    dropdown->setOptions({{"2", std::string(200, 'W')}, {"3", "🙂🙂"}, {"4", "שפה"}, {"5", ""}});
    const PillMenu& menu = open();
    EXPECT_LE(menu.width(), 500);
    EXPECT_TRUE(window.screen()->availableGeometry().contains(menu.geometry()));
}

TEST_F(VMDropdownTest, MenuIsDrawnInTheSchemeOfItsWindow) {
    setScheme(window, Scheme::dark);
    const QImage dark = open().grab().toImage();
    dropdown->menu()->close();
    setScheme(window, Scheme::light);
    const QImage light = open().grab().toImage();
    const QPoint ground(dark.width() - 12, dark.height() / 2);
    EXPECT_LT(dark.pixelColor(ground).lightness(), 80);
    EXPECT_GT(light.pixelColor(ground).lightness(), 200);
}

TEST_F(VMDropdownTest, ChangeOfSchemeRepaintsAnOpenMenuAtOnce) {
    setScheme(window, Scheme::light);
    const PaintCounter paints(open());
    setScheme(window, Scheme::dark);
    EXPECT_GT(paints.count(), 0);
}

}  // namespace
}  // namespace velmora
