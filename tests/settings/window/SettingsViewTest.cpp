#include "settings/window/SettingsView.h"

#include "settings/Descendants.h"
#include "settings/Input.h"
#include "settings/SettingsHouse.h"
#include "settings/blocks/PageHeading.h"
#include "settings/blocks/TextLabel.h"
#include "settings/controls/SettingsButton.h"
#include "settings/controls/SettingsScheme.h"
#include "settings/module/ModuleDetail.h"
#include "settings/module/ModuleHeader.h"
#include "settings/sidebars/Level1Row.h"
#include "settings/sidebars/Level1Sidebar.h"
#include "settings/sidebars/Level2Row.h"
#include "settings/sidebars/Level2Sidebar.h"
#include "settings/window/DetailPane.h"

#include <gtest/gtest.h>

#include <QPointer>
#include <QScrollBar>

#include <set>

namespace velmora {
namespace {

class SettingsViewTest : public testing::Test {
protected:
    SettingsViewTest() {
        setScheme(view, Scheme::light);
        resize(940, 560);
        view.show();
        settle();
    }
    static void settle() {
        SettingsHouse::sweep();
        QCoreApplication::processEvents();
    }
    void resize(int width, int height) {
        view.resize(width, height);
        settle();
    }
    void select(SettingsTab tab) {
        house.router.selectedTab.set(tab);
        settle();
    }
    QRect placeOf(const QWidget& widget) const {
        return {widget.mapTo(&view.detail(), QPoint(0, 0)), widget.size()};
    }
    template <typename Widget>
    Widget& only() const {
        return descendant<Widget>(view);
    }
    template <typename Widget>
    bool has() const {
        return !descendants<Widget>(view).empty();
    }

    SettingsHouse house;
    const SettingsCollaborators with = house.collaborators();
    SettingsView view{with};
};

TEST_F(SettingsViewTest, TheModulesHaveThreeColumnsAndOtherTabsTwo) {
    EXPECT_EQ(view.level1().geometry(), QRect(0, 0, 220, 560));
    ASSERT_TRUE(view.level2());
    EXPECT_EQ(view.level2()->geometry(), QRect(220, 0, 198, 560));
    EXPECT_EQ(view.detail().geometry(), QRect(418, 0, 522, 560));
    select(SettingsTab::general);
    resize(720, 560);
    EXPECT_FALSE(view.level2());
    EXPECT_FALSE(has<Level2Sidebar>());
    EXPECT_EQ(view.detail().geometry(), QRect(220, 0, 500, 560));
}

TEST_F(SettingsViewTest, TheModulesNeedMoreWidthThanTheOtherTabs) {
    EXPECT_EQ(view.minimumWidth(), 880);
    select(SettingsTab::about);
    EXPECT_EQ(view.minimumWidth(), 680);
}

TEST_F(SettingsViewTest, AModulesPageHasItsInsetsAndTheSpaceUnderItsHeader) {
    const QRect header = placeOf(only<ModuleHeader>());
    const QRect body = placeOf(only<ModuleDetail>());
    EXPECT_EQ(header.left(), 30);
    EXPECT_EQ(header.top(), 34);
    EXPECT_EQ(body.left(), 30);
    EXPECT_EQ(body.width(), 522 - 60);
    EXPECT_EQ(body.top() - header.bottom() - 1, 16);
}

TEST_F(SettingsViewTest, InAWideWindowAModulesPageStaysAtTheLeftAndIsNoWiderThanItsText) {
    resize(1400, 560);
    const QRect body = placeOf(only<ModuleDetail>());
    EXPECT_EQ(body.left(), 30);
    EXPECT_EQ(body.width(), 540);
}

TEST_F(SettingsViewTest, BelowAModulesPageIsItsInset) {
    resize(940, 300);
    QScrollBar* const bar = view.detail().verticalScrollBar();
    ASSERT_GT(bar->maximum(), 0);
    bar->setValue(bar->maximum());
    const QRect body = placeOf(only<ModuleDetail>());
    EXPECT_EQ(view.detail().height() - body.bottom() - 1, 30);
}

TEST_F(SettingsViewTest, AnotherPageHasItsHeadingInTheMiddle) {
    select(SettingsTab::general);
    resize(720, 560);
    const QRect heading = placeOf(only<PageHeading>());
    EXPECT_EQ(heading.left(), 28);
    EXPECT_EQ(heading.width(), 500 - 56);
    EXPECT_EQ(heading.top(), 30);
    const auto labels = descendants<TextLabel>(only<PageHeading>());
    ASSERT_EQ(labels.size(), 2u);
    EXPECT_EQ(labels[0]->text(), "General");
    EXPECT_EQ(labels[1]->text(), "Startup and language");
    for (const TextLabel* label : labels) EXPECT_TRUE(label->style().alignment & Qt::AlignHCenter);
}

TEST_F(SettingsViewTest, ThePageOfATabStandsUnderItsHeading) {
    select(SettingsTab::about);
    const QLabel* body = nullptr;
    for (const QLabel* label : view.detail().findChildren<QLabel*>()) {
        if (label->text() == "about page") body = label;
    }
    ASSERT_TRUE(body);
    EXPECT_EQ(placeOf(*body).top() - placeOf(only<PageHeading>()).bottom() - 1, 22);
}

TEST_F(SettingsViewTest, AClickInTheSidebarShowsTheTabAndThenTheModule) {
    for (Level1Row* row : view.level1().rows()) {
        if (row->section() == SettingsTab::general) Input::click(*row);
    }
    settle();
    EXPECT_FALSE(has<ModuleDetail>());
    for (Level1Row* row : view.level1().rows()) {
        if (row->section() == SettingsTab::modules) Input::click(*row);
    }
    settle();
    Input::click(view.level2()->row(StatsModule::sensors));
    settle();
    EXPECT_EQ(only<ModuleDetail>().module(), StatsModule::sensors);
}

TEST_F(SettingsViewTest, SelectingTheShownModuleAgainKeepsItsPage) {
    const QPointer<ModuleDetail> before = &only<ModuleDetail>();
    house.router.selectedModule.set(StatsModule::cpu);
    settle();
    EXPECT_EQ(before.data(), &only<ModuleDetail>());
}

TEST_F(SettingsViewTest, AModuleSelectedWhileAnotherTabIsShownComesWithTheModules) {
    select(SettingsTab::general);
    house.router.selectedModule.set(StatsModule::battery);
    settle();
    EXPECT_FALSE(has<ModuleDetail>());
    select(SettingsTab::modules);
    EXPECT_EQ(only<ModuleDetail>().module(), StatsModule::battery);
}

TEST_F(SettingsViewTest, ATabWithoutAPageShowsItsHeadingAlone) {
    select(SettingsTab::account);
    EXPECT_EQ(descendants<TextLabel>(only<PageHeading>()).front()->text(), "Account");
    EXPECT_FALSE(has<ModuleDetail>());
}

TEST_F(SettingsViewTest, TheHeadingFollowsTheLanguage) {
    select(SettingsTab::general);
    house.speak(AppLanguage::de);
    EXPECT_EQ(descendants<TextLabel>(only<PageHeading>()).front()->text(), "Allgemein");
}

TEST_F(SettingsViewTest, TheHeaderNamesTheModuleAndFollowsItsColour) {
    const ModuleHeader& header = only<ModuleHeader>();
    const auto labels = descendants<TextLabel>(header);
    ASSERT_EQ(labels.size(), 2u);
    EXPECT_EQ(labels[0]->text(), "CPU");
    EXPECT_EQ(labels[1]->text(), "Usage, cores, load average and top apps");
    EXPECT_EQ(header.symbolColor(), QColor(10, 132, 255)) << "the accent colour without one of its own";
    house.settings.setModuleColors({{StatsModule::cpu, "FF3B30"}});
    EXPECT_EQ(header.symbolColor(), QColor(0xFF, 0x3B, 0x30));
    house.settings.setModuleColors({{StatsModule::cpu, "zz"}});
    EXPECT_EQ(header.symbolColor(), QColor(10, 132, 255));
}

TEST_F(SettingsViewTest, TabReachesEveryControlOfThePage) {
    view.activateWindow();
    settle();
    std::set<const QWidget*> reached;
    while (reached.insert(QApplication::focusWidget()).second) {
        Input::key(*(QApplication::focusWidget() ? QApplication::focusWidget() : &view), Qt::Key_Tab, "\t");
    }
    // A group of choices is one stop: its chosen one.
    for (const SettingsButton* button : descendants<SettingsButton>(view)) {
        const bool isOtherChoice = button->autoExclusive() && !button->isChecked();
        if (isOtherChoice || !button->isVisible()) continue;
        EXPECT_TRUE(reached.contains(button)) << button->accessibleName().toStdString();
    }
}

TEST_F(SettingsViewTest, AControlBelowTheWindowIsScrolledToByTheKeyboard) {
    resize(940, 260);
    const auto boxes = descendants<SettingsButton>(only<ModuleDetail>());
    SettingsButton* const last = boxes.back();
    ASSERT_GT(placeOf(*last).bottom(), view.detail().height());
    view.activateWindow();
    for (int step = 0; step < 200 && !last->hasFocus(); ++step) {
        Input::key(*(QApplication::focusWidget() ? QApplication::focusWidget() : &view), Qt::Key_Tab, "\t");
    }
    ASSERT_TRUE(last->hasFocus());
    EXPECT_LE(placeOf(*last).bottom(), view.detail().height());
}

}  // namespace
}  // namespace velmora
