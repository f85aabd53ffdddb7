#include "settings/pages/GeneralTab.h"

#include "settings/Descendants.h"
#include "settings/Input.h"
#include "settings/PaintCounter.h"
#include "settings/SettingsHouse.h"
#include "settings/blocks/FooterNote.h"
#include "settings/blocks/RowDivider.h"
#include "settings/blocks/SettingsCard.h"
#include "settings/blocks/SettingsRow.h"
#include "settings/blocks/TextLabel.h"
#include "settings/controls/PillMenu.h"
#include "settings/controls/PulldownPill.h"
#include "settings/controls/ToggleSwitch.h"
#include "settings/controls/VMDropdown.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QLayout>

#include <string>
#include <vector>

namespace velmora {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;

class GeneralTabTest : public testing::Test {
protected:
    GeneralTabTest() { house.preferredLanguages.preferred = {"de-DE"}; }

    GeneralTab& page() {
        if (!m_page) {
            m_page = std::make_unique<GeneralTab>(house.settings, house.l10n);
            m_page->resize(440, m_page->heightForWidth(440));
            m_page->show();
        }
        return *m_page;
    }
    VMDropdown& picker() { return descendant<VMDropdown>(page()); }
    ToggleSwitch& launch() { return descendant<ToggleSwitch>(page()); }
    std::vector<std::string> texts() {
        std::vector<std::string> texts;
        for (const TextLabel* label : descendants<TextLabel>(page())) {
            if (!label->isHidden()) texts.push_back(label->text().toStdString());
        }
        return texts;
    }
    /// Picks through the menu, as a user does.
    void pick(int position) {
        Input::click(picker().pill());
        picker().menu()->actions()[position]->trigger();
    }

    SettingsHouse house;

private:
    std::unique_ptr<GeneralTab> m_page;
};

TEST_F(GeneralTabTest, CardHasLanguageDividerAndLaunchAndTheNoteStandsBelow) {
    house.speak(AppLanguage::en);
    const auto rows = descendants<SettingsRow>(page());
    ASSERT_EQ(rows.size(), 2);
    ASSERT_EQ(descendants<RowDivider>(page()).size(), 1);
    EXPECT_EQ(rows[0]->control(), &picker());
    EXPECT_EQ(rows[1]->control(), &launch());
    EXPECT_LT(rows[0]->y(), descendant<RowDivider>(page()).y());
    EXPECT_LT(descendant<RowDivider>(page()).y(), rows[1]->y());
    EXPECT_GT(descendant<FooterNote>(page()).y(), descendant<SettingsCard>(page()).geometry().bottom());
    EXPECT_THAT(texts(), testing::ElementsAre(std::string(house.l10n.string("gen.language")),
                                              std::string(house.l10n.string("gen.launchLogin")),
                                              std::string(house.l10n.string("gen.footer"))));
}

TEST_F(GeneralTabTest, PickerIs200By28WithoutImages) {
    EXPECT_EQ(picker().minimumSize(), QSize(200, 28));
    EXPECT_EQ(picker().maximumSize(), QSize(200, 28));
    Input::click(picker().pill());
    for (const QAction* action : picker().menu()->actions()) EXPECT_TRUE(action->icon().isNull());
}

TEST_F(GeneralTabTest, PickerOffersTheSystemAndThenEachLanguageUnderItsOwnName) {
    house.speak(AppLanguage::en);
    const auto& options = picker().options();
    ASSERT_EQ(options.size(), kLanguageCount + 1);
    EXPECT_EQ(options[0], (VMDropdown::Option{"", std::string(house.l10n.string("common.systemDefault"))}));
    for (std::size_t index = 0; index < kLanguageCount; ++index) {
        const AppLanguage language = kAllLanguages[index];
        EXPECT_EQ(options[index + 1],
                  (VMDropdown::Option{std::string(rawValue(language)), std::string(displayName(language))}));
    }
}

TEST_F(GeneralTabTest, PickedLanguageIsStoredAndSpokenAtOnceUnderItsOwnName) {
    house.speak(AppLanguage::en);
    const auto before = texts();
    pick(2);  // After the system and English.
    EXPECT_EQ(house.settings.languageCode().get(), "ja");
    EXPECT_EQ(house.defaults.text("languageCode"), "ja");
    EXPECT_EQ(house.l10n.language().get(), AppLanguage::ja);
    EXPECT_EQ(picker().pill().label(), "日本語");
    for (const std::string& text : before) EXPECT_THAT(texts(), Not(Contains(text)));
    EXPECT_THAT(texts(), Contains(std::string(house.l10n.string("gen.footer"))));
}

TEST_F(GeneralTabTest, PickingTheSystemStoresNoValueAndFollowsTheSystemAtOnce) {
    house.settings.setLanguageCode("ja");
    house.l10n.apply("ja");
    pick(0);
    EXPECT_EQ(house.settings.languageCode().get(), std::nullopt);
    EXPECT_FALSE(house.defaults.contains("languageCode"));
    EXPECT_EQ(house.l10n.language().get(), AppLanguage::de);
    EXPECT_EQ(picker().selection(), "");
    EXPECT_EQ(picker().pill().label().toStdString(), house.l10n.string("common.systemDefault"));
}

TEST_F(GeneralTabTest, StoredLanguageThatNobodyKnowsShowsAnEmptyPill) {
    house.settings.setLanguageCode("tlh");
    EXPECT_EQ(picker().pill().label(), "");
}

TEST_F(GeneralTabTest, SystemsTitleFollowsTheLanguageAlsoInAnOpenMenu) {
    house.speak(AppLanguage::en);
    Input::click(picker().pill());
    house.speak(AppLanguage::de);
    EXPECT_EQ(picker().menu()->actions()[0]->text().toStdString(), house.l10n.string("common.systemDefault"));
}

TEST_F(GeneralTabTest, LaunchSwitchShowsTheSettingAndWritesIt) {
    house.settings.setLaunchAtLogin(true);
    EXPECT_TRUE(launch().isOn());
    Input::click(launch());
    EXPECT_FALSE(house.settings.launchAtLogin().get());
    EXPECT_FALSE(launch().isOn());
    EXPECT_FALSE(house.loginItem.isRegistered);
    Input::click(launch());
    EXPECT_TRUE(house.settings.launchAtLogin().get());
    EXPECT_TRUE(launch().isOn());
    EXPECT_TRUE(house.loginItem.isRegistered);
}

TEST_F(GeneralTabTest, LoginItemThatCannotBeRegisteredShowsNoErrorAndTheSettingStays) {
    house.settings.setLaunchAtLogin(false);
    house.loginItem.failure = "not allowed";
    Input::click(launch());
    EXPECT_TRUE(launch().isOn());
    EXPECT_TRUE(house.settings.launchAtLogin().get());
}

TEST_F(GeneralTabTest, ChangesFromOutsideAreShown) {
    page();
    house.settings.setLaunchAtLogin(false);
    EXPECT_FALSE(launch().isOn());
    house.settings.setLanguageCode("pl");
    EXPECT_EQ(picker().pill().label(), "Polski");
}

TEST_F(GeneralTabTest, OpeningThePageWritesNothing) {
    house.defaults.writes.clear();
    page();
    EXPECT_THAT(house.defaults.writes, IsEmpty());
}

TEST_F(GeneralTabTest, ClosedPageIsToldNothingMore) {
    const std::size_t before = house.settings.languageCode().subscriberCount();
    { GeneralTab other(house.settings, house.l10n); }
    EXPECT_EQ(house.settings.languageCode().subscriberCount(), before);
    house.speak(AppLanguage::ru);
}

TEST_F(GeneralTabTest, ControlsAreNamedForScreenReadersInThePresentLanguage) {
    house.speak(AppLanguage::de);
    EXPECT_EQ(picker().pill().accessibleName().toStdString(), house.l10n.string("gen.language"));
    EXPECT_EQ(launch().accessibleName().toStdString(), house.l10n.string("gen.launchLogin"));
}

}  // namespace
}  // namespace velmora
