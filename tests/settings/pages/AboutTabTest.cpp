#include "settings/pages/AboutTab.h"

#include "base/FormatText.h"
#include "fakes/FakeUpdater.h"
#include "fakes/FakeWorkspace.h"
#include "settings/Descendants.h"
#include "settings/Input.h"
#include "settings/SettingsHouse.h"
#include "settings/blocks/AppIconView.h"
#include "settings/blocks/RowDivider.h"
#include "settings/blocks/SettingsCard.h"
#include "settings/blocks/SettingsRow.h"
#include "settings/blocks/TextLabel.h"
#include "settings/controls/LinkButton.h"
#include "settings/controls/ToggleSwitch.h"
#include "settings/controls/VMPillButton.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLayout>

#include <string>
#include <vector>

namespace velmora {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class AboutTabTest : public testing::Test {
protected:
    AboutTabTest() {
        house.bundle.values["VMProductURL"] = "https://velmora.example/";
        house.speak(AppLanguage::en);
    }

    AboutTab& page() {
        if (!m_page) {
            m_page = std::make_unique<AboutTab>(
                AboutTab::Collaborators{house.settings, house.l10n, house.bundle, workspace, updater});
            m_page->resize(440, m_page->heightForWidth(440));
            m_page->show();
        }
        return *m_page;
    }
    void withFeed() {
        house.bundle.values["SUFeedURL"] = "http://127.0.0.1/feed.xml";
        updater = &m_updater;
    }
    FakeUpdater& theUpdater() { return m_updater; }
    SettingsRow* rowTitled(std::string_view key) {
        for (SettingsRow* row : descendants<SettingsRow>(page())) {
            if (descendants<TextLabel>(*row).front()->text().toStdString() == house.l10n.string(key))
                return row;
        }
        return nullptr;
    }
    ToggleSwitch& switchOf(std::string_view key) {
        SettingsRow* const row = rowTitled(key);
        auto* const itself = dynamic_cast<ToggleSwitch*>(row->control());
        return itself ? *itself : descendant<ToggleSwitch>(*row->control());
    }
    std::vector<std::string> texts() {
        std::vector<std::string> texts;
        for (const TextLabel* label : descendants<TextLabel>(page()))
            texts.push_back(label->text().toStdString());
        return texts;
    }
    std::string words(std::string_view key) { return std::string(house.l10n.string(key)); }

    SettingsHouse house;
    FakeWorkspace workspace;
    Updater* updater = nullptr;

private:
    FakeUpdater m_updater;
    std::unique_ptr<AboutTab> m_page;
};

// What the program is.

TEST_F(AboutTabTest, IdentityStandsInTheMiddleFromIconToCopyright) {
    page();
    const auto* const icon = &descendant<AppIconView>(page());
    const auto* const link = &descendant<LinkButton>(page());
    EXPECT_EQ(icon->size(), QSize(72, 72));
    EXPECT_EQ(icon->y(), 26);
    EXPECT_NEAR(icon->geometry().center().x(), 220, 1);
    EXPECT_NEAR(link->geometry().center().x(), 220, 1);
    const auto labels = descendants<TextLabel>(*icon->parentWidget());
    ASSERT_EQ(labels.size(), 4);
    EXPECT_EQ(labels[0]->text(), "Velmora");
    EXPECT_EQ(labels[0]->style().size, 20);
    EXPECT_EQ(labels[0]->style().weight, QFont::Bold);
    EXPECT_EQ(labels[1]->text().toStdString(), words("about.tagline"));
    EXPECT_EQ(labels[3]->text().toStdString(), words("about.copyright"));
    const std::vector<const QWidget*> column = {icon, labels[0], labels[1], labels[2], link, labels[3]};
    for (std::size_t index = 1; index < column.size(); ++index) {
        EXPECT_EQ(column[index]->y() - column[index - 1]->geometry().bottom() - 1, 10) << index;
    }
    EXPECT_EQ(icon->parentWidget()->height() - labels[3]->geometry().bottom() - 1, 26);
}

TEST_F(AboutTabTest, VersionIsTheBundlesWithTheBuildInParentheses) {
    house.bundle.values["CFBundleShortVersionString"] = "1.4.2";
    house.bundle.values["CFBundleVersion"] = "77";
    EXPECT_EQ(AboutTab::versionText(house.bundle), "1.4.2 (77)");
    EXPECT_THAT(texts(), Contains(formatText(words("about.version"), {"1.4.2 (77)"})));
}

TEST_F(AboutTabTest, BundleWithoutAVersionIsTheDevelopmentOne) {
    EXPECT_EQ(AboutTab::versionText(house.bundle), "0.1.0 (dev)");
    house.bundle.values["CFBundleShortVersionString"] = "1.4.2";
    EXPECT_EQ(AboutTab::versionText(house.bundle), "0.1.0 (dev)") << "half of it is none";
}

TEST_F(AboutTabTest, LinkShowsTheAddressWithoutItsSchemeAndOpensIt) {
    auto* const link = &descendant<LinkButton>(page());
    EXPECT_EQ(link->text(), "velmora.example");
    EXPECT_EQ(link->cursor().shape(), Qt::PointingHandCursor);
    Input::click(*link);
    Input::key(*link, Qt::Key_Return);
    EXPECT_THAT(workspace.opened, ElementsAre("https://velmora.example/", "https://velmora.example/"));
}

TEST_F(AboutTabTest, AddressThatCannotBeParsedOpensNothing) {
    house.bundle.values["VMProductURL"] = "https://[not an address";
    Input::click(descendant<LinkButton>(page()));
    EXPECT_THAT(workspace.opened, IsEmpty());
}

TEST_F(AboutTabTest, DeploymentWithoutAnAddressHasNoLink) {
    house.bundle.values.erase("VMProductURL");
    EXPECT_TRUE(descendants<LinkButton>(page()).empty());
}

// Updates.

TEST_F(AboutTabTest, BuildWithoutAFeedBeginsWithTheCrashRow) {
    page();
    EXPECT_EQ(rowTitled("gen.autoUpdate"), nullptr);
    EXPECT_TRUE(descendants<VMPillButton>(page()).empty());
    EXPECT_EQ(descendants<RowDivider>(page()).size(), 1);
    EXPECT_EQ(rowTitled("gen.crashReports")->y(), 0);
    EXPECT_THAT(texts(), Not(Contains(words("gen.autoUpdateSub"))));
}

TEST_F(AboutTabTest, UpdateRowComesFirstInABuildWithAFeed) {
    withFeed();
    page();
    ASSERT_NE(rowTitled("gen.autoUpdate"), nullptr);
    EXPECT_EQ(rowTitled("gen.autoUpdate")->y(), 0);
    EXPECT_EQ(descendants<RowDivider>(page()).size(), 2);
    EXPECT_THAT(texts(), Contains(words("gen.autoUpdateSub")));
}

TEST_F(AboutTabTest, ButtonAndSwitchStandSideBySide) {
    withFeed();
    auto* const button = &descendant<VMPillButton>(page());
    const ToggleSwitch& toggle = switchOf("gen.autoUpdate");
    EXPECT_EQ(button->height(), 26);
    EXPECT_EQ(button->width(), button->button().sizeHint().width());
    EXPECT_EQ(button->button().buttonTitle().toStdString(), words("common.checkNow"));
    EXPECT_FALSE(button->button().filled());
    EXPECT_EQ(toggle.x() - button->geometry().right() - 1, 8);
    EXPECT_NEAR(toggle.geometry().center().y(), button->geometry().center().y(), 1);
}

TEST_F(AboutTabTest, CheckNowAsksTheUpdater) {
    withFeed();
    Input::click(descendant<VMPillButton>(page()).button());
    EXPECT_EQ(theUpdater().checkCount, 1);
}

TEST_F(AboutTabTest, UpdateSwitchShowsTheUpdatersValueWhenThePageComesUp) {
    withFeed();
    theUpdater().checksAutomatically = true;
    EXPECT_TRUE(switchOf("gen.autoUpdate").isOn());
    page().hide();
    theUpdater().checksAutomatically = false;
    page().show();
    EXPECT_FALSE(switchOf("gen.autoUpdate").isOn());
}

TEST_F(AboutTabTest, UpdateSwitchWritesTheUpdaterAndTheSettingsHoldNoCopy) {
    withFeed();
    page();
    house.defaults.writes.clear();
    Input::click(switchOf("gen.autoUpdate"));
    EXPECT_TRUE(theUpdater().checksAutomatically);
    EXPECT_TRUE(switchOf("gen.autoUpdate").isOn());
    Input::click(switchOf("gen.autoUpdate"));
    EXPECT_FALSE(theUpdater().checksAutomatically);
    EXPECT_THAT(house.defaults.writes, IsEmpty());
}

TEST_F(AboutTabTest, WithoutAnUpdaterTheUpdateControlsDoNothing) {
    withFeed();
    updater = nullptr;
    Input::click(descendant<VMPillButton>(page()).button());
    Input::click(switchOf("gen.autoUpdate"));
    EXPECT_FALSE(switchOf("gen.autoUpdate").isOn());
}

// Reports.

TEST_F(AboutTabTest, ReportSwitchesShowAndWriteTheirSettings) {
    EXPECT_TRUE(switchOf("gen.crashReports").isOn());
    EXPECT_TRUE(switchOf("priv.improve").isOn());
    Input::click(switchOf("gen.crashReports"));
    EXPECT_FALSE(house.settings.crashReportingEnabled().get());
    EXPECT_TRUE(house.settings.improveDataSharing().get());
    EXPECT_FALSE(switchOf("gen.crashReports").isOn());
    Input::click(switchOf("priv.improve"));
    EXPECT_FALSE(house.settings.improveDataSharing().get());
    EXPECT_FALSE(switchOf("priv.improve").isOn());
    EXPECT_EQ(house.defaults.stored["crashReportingEnabled"], false);
    EXPECT_EQ(house.defaults.stored["improveDataSharing"], false);
}

TEST_F(AboutTabTest, ChangesFromOutsideAreShown) {
    page();
    house.settings.setCrashReportingEnabled(false);
    house.settings.setImproveDataSharing(false);
    EXPECT_FALSE(switchOf("gen.crashReports").isOn());
    EXPECT_FALSE(switchOf("priv.improve").isOn());
}

TEST_F(AboutTabTest, LanguageChangesEveryTextOfTheOpenPage) {
    withFeed();
    const auto before = texts();
    house.speak(AppLanguage::ru);
    const auto after = texts();
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t index = 1; index < after.size(); ++index) {
        // The copyright is the same in every language.
        if (before[index] == words("about.copyright")) continue;
        EXPECT_NE(after[index], before[index]);
    }
    EXPECT_EQ(after[0], "Velmora");
    EXPECT_EQ(descendant<VMPillButton>(page()).button().buttonTitle().toStdString(),
              words("common.checkNow"));
    EXPECT_EQ(switchOf("gen.autoUpdate").accessibleName().toStdString(), words("gen.autoUpdate"));
}

TEST_F(AboutTabTest, ButtonKeepsItsNaturalWidthWhenTheLanguageChanges) {
    withFeed();
    const auto& button = descendant<VMPillButton>(page());
    for (const AppLanguage language : {AppLanguage::ru, AppLanguage::ja, AppLanguage::de}) {
        house.speak(language);
        QCoreApplication::processEvents();
        EXPECT_EQ(button.width(), button.button().sizeHint().width());
        EXPECT_EQ(button.button().width(), button.width());
    }
}

TEST_F(AboutTabTest, OpeningThePageWritesNothing) {
    withFeed();
    house.defaults.writes.clear();
    page();
    EXPECT_THAT(house.defaults.writes, IsEmpty());
}

}  // namespace
}  // namespace velmora
