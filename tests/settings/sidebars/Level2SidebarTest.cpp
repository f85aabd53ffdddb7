#include "settings/sidebars/Level2Sidebar.h"

#include "look/Ink.h"
#include "look/SystemFont.h"
#include "settings/Descendants.h"
#include "settings/Input.h"
#include "settings/SettingsHouse.h"
#include "settings/blocks/TextLabel.h"
#include "settings/controls/SettingsScheme.h"
#include "settings/sidebars/CountLabel.h"
#include "settings/sidebars/Level2Row.h"
#include "settings/sidebars/SidebarGeometry.h"

#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QScrollArea>
#include <QScrollBar>

namespace velmora {
namespace {

class Level2SidebarTest : public testing::Test {
protected:
    Level2SidebarTest() {
        setScheme(sidebar, Scheme::light);
        sidebar.resize(198, 560);
        sidebar.show();
        QCoreApplication::processEvents();
    }
    QRect placeOf(const QWidget& widget) const {
        return {widget.mapTo(&sidebar, QPoint(0, 0)), widget.size()};
    }
    bool hasText(const char* words) const {
        for (const TextLabel* label : descendants<TextLabel>(sidebar)) {
            if (label->text() == QString::fromUtf8(words)) return true;
        }
        return false;
    }

    SettingsHouse house;
    Level2Sidebar sidebar{house.router, house.settings, house.l10n};
};

TEST_F(Level2SidebarTest, TheSixModulesStandInTheirOrder) {
    QStringList labels;
    int above = 0;
    for (const StatsModule module : kAllModules) {
        const QRect place = placeOf(sidebar.row(module));
        EXPECT_GT(place.top(), above);
        above = place.bottom();
        labels.append(sidebar.row(module).label());
    }
    EXPECT_EQ(labels, (QStringList{"CPU", "Memory", "Disk", "Network", "Sensors", "Battery"}));
}

TEST_F(Level2SidebarTest, RowsAreThirtyHighEightFromTheSidesAndOneApart) {
    const QRect cpu = placeOf(sidebar.row(StatsModule::cpu));
    const QRect memory = placeOf(sidebar.row(StatsModule::memory));
    EXPECT_EQ(cpu.left(), 8);
    EXPECT_EQ(cpu.width(), 182);
    EXPECT_EQ(cpu.height(), 30);
    EXPECT_EQ(memory.top() - cpu.bottom() - 1, 1);
}

TEST_F(Level2SidebarTest, AGreenDotSaysThatAModuleIsOn) {
    EXPECT_EQ(sidebar.row(StatsModule::cpu).dot(), QColor(52, 199, 89));
    EXPECT_EQ(sidebar.row(StatsModule::disk).dot(), Ink::primary(Scheme::light, 0.18));
    house.settings.setEnabled(StatsModule::disk, true);
    EXPECT_EQ(sidebar.row(StatsModule::disk).dot(), QColor(52, 199, 89));
}

TEST_F(Level2SidebarTest, TheDotOfAModuleThatIsOffFollowsTheScheme) {
    setScheme(sidebar, Scheme::dark);
    EXPECT_EQ(sidebar.row(StatsModule::disk).dot(), Ink::primary(Scheme::dark, 0.18));
}

TEST_F(Level2SidebarTest, TheHeaderCountsTheEnabledModules) {
    EXPECT_EQ(sidebar.count().text(), "3");
    house.settings.setEnabledModules({});
    EXPECT_EQ(sidebar.count().text(), "0");
}

TEST_F(Level2SidebarTest, TheChosenRowIsTheRoutersAndAClickWritesIt) {
    EXPECT_TRUE(sidebar.row(StatsModule::cpu).isChosen());
    Input::click(sidebar.row(StatsModule::network));
    EXPECT_EQ(house.router.selectedModule.get(), StatsModule::network);
    EXPECT_TRUE(sidebar.row(StatsModule::network).isChosen());
    EXPECT_FALSE(sidebar.row(StatsModule::cpu).isChosen());
    house.router.selectedModule.set(StatsModule::battery);
    EXPECT_TRUE(sidebar.row(StatsModule::battery).isChosen());
}

TEST_F(Level2SidebarTest, ArrowKeysGoFromModuleToModule) {
    sidebar.activateWindow();
    sidebar.row(StatsModule::cpu).setFocus(Qt::TabFocusReason);
    Input::key(sidebar.row(StatsModule::cpu), Qt::Key_Down);
    EXPECT_EQ(house.router.selectedModule.get(), StatsModule::memory);
}

TEST_F(Level2SidebarTest, TheTextsFollowTheLanguage) {
    EXPECT_TRUE(hasText("Modules"));
    house.speak(AppLanguage::de);
    EXPECT_TRUE(hasText("Module"));
    EXPECT_EQ(sidebar.row(StatsModule::memory).label(), "Arbeitsspeicher");
}

TEST_F(Level2SidebarTest, EveryNameAndTheHintHaveTheirRoomInEveryLanguage) {
    const QFontMetrics chosen(SystemFont::ofPixelSize(13, QFont::DemiBold));
    for (const AppLanguage language : kAllLanguages) {
        house.speak(language);
        QCoreApplication::processEvents();
        for (const StatsModule module : kAllModules) {
            const Level2Row& row = sidebar.row(module);
            EXPECT_LE(chosen.horizontalAdvance(row.label()),
                      SidebarGeometry::level2(row.size()).label.width())
                << row.label().toStdString();
        }
        for (const TextLabel* label : descendants<TextLabel>(sidebar)) {
            EXPECT_GE(label->height(), label->heightForWidth(label->width())) << label->text().toStdString();
            EXPECT_LE(placeOf(*label).bottom(), 559);
        }
    }
}

TEST_F(Level2SidebarTest, InAShortWindowEveryModuleCanBeScrolledTo) {
    sidebar.resize(198, 200);
    QCoreApplication::processEvents();
    auto* const scroll = sidebar.findChild<QScrollArea*>();
    QScrollBar* const bar = scroll->verticalScrollBar();
    ASSERT_GT(bar->maximum(), 0);
    bar->setValue(bar->maximum());
    EXPECT_LE(placeOf(sidebar.row(StatsModule::battery)).bottom(), placeOf(*scroll->viewport()).bottom());
}

TEST_F(Level2SidebarTest, ALineRunsAlongTheRightEdge) {
    const QImage picture = sidebar.grab().toImage();
    EXPECT_NE(picture.pixelColor(197, 400), picture.pixelColor(196, 400));
    EXPECT_EQ(picture.pixelColor(196, 400), picture.pixelColor(190, 400));
}

}  // namespace
}  // namespace velmora
