// Whether the texts of every language have room on the pages, in the narrowest window and in its usual width.

#include "fakes/FakeUpdater.h"
#include "fakes/FakeWorkspace.h"
#include "settings/SettingsHouse.h"
#include "settings/blocks/TextLabel.h"
#include "settings/controls/PillButton.h"
#include "settings/controls/PulldownPill.h"
#include "settings/pages/AboutTab.h"
#include "settings/pages/GeneralTab.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QLayout>

namespace velmora {
namespace {

// The window without the sidebar and without the insets of a page.
constexpr int kPageInWindow680 = 680 - 220 - 2 * 28;
constexpr int kPageInWindow720 = 720 - 220 - 2 * 28;

class PagesFitTest : public testing::TestWithParam<AppLanguage> {
protected:
    PagesFitTest() {
        house.bundle.values["SUFeedURL"] = "http://127.0.0.1/feed.xml";
        house.bundle.values["VMProductURL"] = "https://velmora.example/";
        house.settings.setLanguageCode(std::string(rawValue(GetParam())));
        house.speak(GetParam());
    }

    static void expectEverythingFits(QWidget& page, int width) {
        page.resize(width, page.heightForWidth(width));
        page.show();
        page.layout()->activate();
        ASSERT_EQ(page.width(), width) << "the page asks for no more than it gets";
        for (const QWidget* child : page.findChildren<QWidget*>()) {
            if (!child->isVisible() || child->isWindow()) continue;
            EXPECT_TRUE(child->parentWidget()->rect().contains(child->geometry()))
                << child->metaObject()->className() << " " << child->accessibleName().toStdString();
            if (const auto* const label = dynamic_cast<const TextLabel*>(child)) {
                EXPECT_GE(label->height(), label->heightForWidth(label->width()))
                    << label->text().toStdString();
            } else if (const auto* const button = dynamic_cast<const PillButton*>(child)) {
                EXPECT_GE(button->width(), button->sizeHint().width()) << button->buttonTitle().toStdString();
            } else if (const auto* const pill = dynamic_cast<const PulldownPill*>(child)) {
                EXPECT_GE(pill->width(), pill->sizeHint().width()) << pill->label().toStdString();
            }
        }
    }

    SettingsHouse house;
    FakeWorkspace workspace;
    FakeUpdater updater;
};

TEST_P(PagesFitTest, GeneralPage) {
    for (const int width : {kPageInWindow680, kPageInWindow720, 1200}) {
        GeneralTab page(house.settings, house.l10n);
        expectEverythingFits(page, width);
    }
}

TEST_P(PagesFitTest, AboutPage) {
    for (const int width : {kPageInWindow680, kPageInWindow720, 1200}) {
        AboutTab page({house.settings, house.l10n, house.bundle, workspace, &updater});
        expectEverythingFits(page, width);
    }
}

std::string nameOf(const testing::TestParamInfo<AppLanguage>& language) {
    std::string name(rawValue(language.param));
    std::erase(name, '-');
    return name;
}

INSTANTIATE_TEST_SUITE_P(AllLanguages, PagesFitTest, testing::ValuesIn(kAllLanguages), nameOf);

}  // namespace
}  // namespace velmora
