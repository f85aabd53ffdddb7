#include "settings/sidebars/Level1Sidebar.h"

#include "look/SystemFont.h"
#include "look/Theme.h"
#include "settings/Descendants.h"
#include "settings/Input.h"
#include "settings/SettingsHouse.h"
#include "settings/blocks/AppIconView.h"
#include "settings/blocks/TextLabel.h"
#include "settings/controls/SettingsScheme.h"
#include "settings/sidebars/IconChip.h"
#include "settings/sidebars/Level1Row.h"
#include "settings/sidebars/SidebarDivider.h"
#include "settings/sidebars/SidebarFoot.h"
#include "settings/sidebars/SidebarGeometry.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QFontMetrics>
#include <QScrollArea>
#include <QScrollBar>

namespace velmora {
namespace {

const std::vector<SettingsTab> kEveryTab(kAllSettingsTabs.begin(), kAllSettingsTabs.end());

class Level1SidebarTest : public testing::Test {
protected:
    Level1Sidebar& sidebar(const std::vector<SettingsTab>& tabs = kEveryTab, int height = 560) {
        m_sidebar =
            std::make_unique<Level1Sidebar>(house.router, house.settings, house.l10n, house.bundle, tabs);
        setScheme(*m_sidebar, Scheme::light);
        m_sidebar->resize(220, height);
        m_sidebar->show();
        QCoreApplication::processEvents();
        return *m_sidebar;
    }
    static Level1Row& row(const Level1Sidebar& sidebar, SettingsTab tab) {
        for (Level1Row* candidate : sidebar.rows()) {
            if (candidate->section() == tab) return *candidate;
        }
        throw std::runtime_error("no such row");
    }
    static QStringList titles(const Level1Sidebar& sidebar) {
        QStringList titles;
        for (const Level1Row* row : sidebar.rows()) titles.append(row->title());
        return titles;
    }
    static QRect placeOf(const QWidget& widget, const QWidget& in) {
        return {widget.mapTo(&in, QPoint(0, 0)), widget.size()};
    }

    SettingsHouse house;

private:
    std::unique_ptr<Level1Sidebar> m_sidebar;
};

TEST_F(Level1SidebarTest, TheTabsStandInTheirOrder) {
    EXPECT_EQ(titles(sidebar()), (QStringList{"General", "Modules", "Account", "About"}));
}

TEST_F(Level1SidebarTest, ATabWithoutAPageIsLeftOut) {
    EXPECT_EQ(titles(sidebar({SettingsTab::general, SettingsTab::modules, SettingsTab::about})),
              (QStringList{"General", "Modules", "About"}));
}

TEST_F(Level1SidebarTest, TheDividerStandsAboveTheAccountAndOnlyThere) {
    const Level1Sidebar& all = sidebar();
    const QRect divider = placeOf(descendant<SidebarDivider>(all), all);
    EXPECT_GT(divider.top(), placeOf(row(all, SettingsTab::modules), all).bottom());
    EXPECT_LT(divider.bottom(), placeOf(row(all, SettingsTab::account), all).top());
    EXPECT_TRUE(descendants<SidebarDivider>(sidebar({SettingsTab::general, SettingsTab::about})).empty());
}

TEST_F(Level1SidebarTest, RowsAreTenPointsFromTheSidesAndTwoApart) {
    const Level1Sidebar& all = sidebar();
    const QRect general = placeOf(row(all, SettingsTab::general), all);
    const QRect modules = placeOf(row(all, SettingsTab::modules), all);
    EXPECT_EQ(general.left(), 10);
    EXPECT_EQ(general.width(), 200);
    EXPECT_EQ(general.height(), 36);
    EXPECT_EQ(modules.top() - general.bottom() - 1, 2);
}

TEST_F(Level1SidebarTest, TheChosenRowIsTheRouters) {
    const Level1Sidebar& all = sidebar();
    for (const SettingsTab tab : kAllSettingsTabs) {
        house.router.selectedTab.set(tab);
        for (const Level1Row* row : all.rows()) EXPECT_EQ(row->isChosen(), row->section() == tab);
    }
}

TEST_F(Level1SidebarTest, ASelectedTabWithoutARowLeavesNoRowChosen) {
    const Level1Sidebar& some = sidebar({SettingsTab::general, SettingsTab::modules});
    house.router.selectedTab.set(SettingsTab::account);
    for (const Level1Row* row : some.rows()) EXPECT_FALSE(row->isChosen());
    house.router.selectedTab.set(SettingsTab::general);
    EXPECT_TRUE(row(some, SettingsTab::general).isChosen());
}

TEST_F(Level1SidebarTest, AClickWritesTheRouter) {
    const Level1Sidebar& all = sidebar();
    Input::click(row(all, SettingsTab::about));
    EXPECT_EQ(house.router.selectedTab.get(), SettingsTab::about);
    EXPECT_TRUE(row(all, SettingsTab::about).isChosen());
}

TEST_F(Level1SidebarTest, ArrowKeysGoFromRowToRow) {
    Level1Sidebar& all = sidebar();
    all.activateWindow();
    row(all, SettingsTab::modules).setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(row(all, SettingsTab::modules).hasFocus());
    Input::key(row(all, SettingsTab::modules), Qt::Key_Down);
    EXPECT_EQ(house.router.selectedTab.get(), SettingsTab::account);
    EXPECT_TRUE(row(all, SettingsTab::account).hasFocus());
    Input::key(row(all, SettingsTab::account), Qt::Key_Up);
    EXPECT_EQ(house.router.selectedTab.get(), SettingsTab::modules);
}

TEST_F(Level1SidebarTest, TheModulesRowAloneCountsTheEnabledModules) {
    const Level1Sidebar& all = sidebar();
    EXPECT_EQ(row(all, SettingsTab::modules).count(), "3 / 6");
    EXPECT_EQ(row(all, SettingsTab::general).count(), "");
    house.settings.setEnabled(StatsModule::battery, true);
    EXPECT_EQ(row(all, SettingsTab::modules).count(), "4 / 6");
}

TEST_F(Level1SidebarTest, WithEveryModuleOffTheCountIsNone) {
    house.settings.setEnabledModules({});
    EXPECT_EQ(row(sidebar(), SettingsTab::modules).count(), "0 / 6");
}

TEST_F(Level1SidebarTest, InATallWindowTheVersionLineIsAtTheBottom) {
    const Level1Sidebar& tall = sidebar(kEveryTab, 1000);
    const auto* const foot = &descendant<SidebarFoot>(tall);
    EXPECT_EQ(placeOf(*foot, tall).bottom(), 999);
    EXPECT_EQ(tall.findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
}

TEST_F(Level1SidebarTest, InAShortWindowTheVersionLineScrolls) {
    const Level1Sidebar& low = sidebar(kEveryTab, 250);
    const auto* const foot = &descendant<SidebarFoot>(low);
    QScrollBar* const bar = low.findChild<QScrollArea*>()->verticalScrollBar();
    EXPECT_GT(placeOf(*foot, low).bottom(), 249);
    EXPECT_GT(bar->maximum(), 0);
    const QRect last = placeOf(row(low, SettingsTab::about), low);
    EXPECT_GE(placeOf(*foot, low).top() - last.bottom() - 1, 24);
    bar->setValue(bar->maximum());
    EXPECT_EQ(placeOf(*foot, low).bottom(), 249);
}

TEST_F(Level1SidebarTest, TheTextsFollowTheLanguage) {
    const Level1Sidebar& all = sidebar();
    house.speak(AppLanguage::de);
    EXPECT_EQ(titles(all).first(), "Allgemein");
    EXPECT_EQ(row(all, SettingsTab::general).accessibleName(), "Allgemein");
    EXPECT_EQ(descendants<TextLabel>(all).front()->text(), "Einstellungen");
}

TEST_F(Level1SidebarTest, EveryTitleHasItsRoomInEveryLanguage) {
    const Level1Sidebar& all = sidebar();
    const QFontMetrics metrics(SystemFont::ofPixelSize(13, QFont::Medium));
    constexpr int kCountWidth = 30;
    for (const AppLanguage language : kAllLanguages) {
        house.speak(language);
        for (const Level1Row* row : all.rows()) {
            const int count = row->count().isEmpty() ? 0 : kCountWidth;
            EXPECT_LE(metrics.horizontalAdvance(row->title()),
                      SidebarGeometry::level1(row->size(), count).title.width())
                << row->title().toStdString();
        }
    }
}

TEST_F(Level1SidebarTest, TheVersionIsTheBundlesOrTheFirstOne) {
    house.bundle.values["CFBundleShortVersionString"] = "2.4";
    EXPECT_EQ(SidebarFoot::versionText(house.bundle), "2.4");
    house.bundle.values.erase("CFBundleShortVersionString");
    EXPECT_EQ(SidebarFoot::versionText(house.bundle), "0.1.0");
}

TEST_F(Level1SidebarTest, AVersionOfTwoHundredLettersStaysInTheSidebar) {
    house.bundle.values["CFBundleShortVersionString"] = std::string(200, 'W');
    const Level1Sidebar& all = sidebar();
    for (const TextLabel* label : descendants<TextLabel>(all)) {
        EXPECT_LE(placeOf(*label, all).right(), 219) << label->text().left(9).toStdString();
    }
}

TEST_F(Level1SidebarTest, AScreenReaderHearsTheTitleTheCountAndTheChoice) {
    Level1Row& modules = row(sidebar(), SettingsTab::modules);
    QAccessibleInterface* const heard = QAccessible::queryAccessibleInterface(&modules);
    ASSERT_TRUE(heard);
    EXPECT_EQ(heard->text(QAccessible::Name), "Modules");
    EXPECT_EQ(heard->text(QAccessible::Description), "3 / 6");
    EXPECT_EQ(heard->role(), QAccessible::RadioButton) << "one of several";
    EXPECT_TRUE(heard->state().checked);
}

TEST_F(Level1SidebarTest, AChosenRowIsFilledWithTheAccentColour) {
    Level1Sidebar& all = sidebar();
    house.router.selectedTab.set(SettingsTab::general);
    const QImage picture = all.grab().toImage();
    const QRect general = placeOf(row(all, SettingsTab::general), all);
    const QRect modules = placeOf(row(all, SettingsTab::modules), all);
    EXPECT_EQ(picture.pixelColor(general.right() - 3, general.center().y()), Theme::accent);
    EXPECT_NE(picture.pixelColor(modules.right() - 3, modules.center().y()), Theme::accent);
}

TEST(IconChipTest, EachTabHasItsSymbolAndItsTwoColours) {
    struct Expected {
        SettingsTab tab;
        std::string_view symbol;
        QColor top;
        QColor bottom;
    };
    const Expected all[] = {
        {SettingsTab::general, "gearshape.fill", QColor(142, 142, 147), QColor(110, 110, 115)},
        {SettingsTab::modules, "gauge.with.dots.needle.67percent", QColor(74, 163, 255),
         QColor(10, 132, 255)},
        {SettingsTab::account, "person.crop.circle.fill", QColor(102, 212, 207), QColor(0, 163, 163)},
        {SettingsTab::about, "info.circle.fill", QColor(142, 142, 240), QColor(94, 92, 230)}};
    for (const Expected& expected : all) {
        const IconChip chip = IconChip::of(expected.tab);
        EXPECT_EQ(chip.symbol, expected.symbol);
        EXPECT_EQ(chip.top, expected.top);
        EXPECT_EQ(chip.bottom, expected.bottom);
    }
}

}  // namespace
}  // namespace velmora
