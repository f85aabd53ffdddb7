#include "settings/module/ModuleDetail.h"

#include "look/PinnedFont.h"
#include "settings/Descendants.h"
#include "settings/SettingsHouse.h"
#include "settings/blocks/SettingsCard.h"
#include "settings/blocks/TextLabel.h"
#include "settings/controls/CheckBox.h"
#include "settings/controls/PillMenu.h"
#include "settings/controls/PulldownPill.h"
#include "settings/controls/SettingsScheme.h"
#include "settings/controls/ToggleSwitch.h"
#include "settings/controls/VMDropdown.h"
#include "settings/module/MetricsGrid.h"
#include "settings/module/PreviewStrip.h"
#include "settings/module/StyleSamples.h"
#include "settings/module/Swatch.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora {
namespace {

class ModuleDetailTest : public testing::Test {
protected:
    /// The module's page, shown in a window.
    ModuleDetail& page(StatsModule module = StatsModule::cpu) {
        m_page = std::make_unique<ModuleDetail>(house.settings, module, house.l10n, house.snapshot);
        setScheme(*m_page, Scheme::light);
        m_page->resize(462, 700);
        m_page->show();
        QCoreApplication::processEvents();
        return *m_page;
    }
    static std::vector<std::string> chosen(const ModuleDetail& detail) {
        std::vector<std::string> hexes;
        for (const Swatch* swatch : detail.swatches()) {
            if (swatch->isChosen()) hexes.push_back(swatch->hex());
        }
        return hexes;
    }
    static Swatch& swatch(const ModuleDetail& detail, const std::string& hex) {
        for (Swatch* candidate : detail.swatches()) {
            if (candidate->hex() == hex) return *candidate;
        }
        throw std::runtime_error("no such swatch");
    }
    /// Opens the dropdown and picks the entry with the title.
    static void pick(VMDropdown& dropdown, const QString& title) {
        dropdown.pill().click();
        PillMenu* const menu = dropdown.menu();
        ASSERT_TRUE(menu);
        for (QAction* action : menu->actions()) {
            if (action->text() == title) {
                action->trigger();
                menu->close();
                return;
            }
        }
        FAIL() << "no entry " << title.toStdString();
    }
    static QImage picture(PreviewStrip& strip) { return strip.grab().toImage(); }
    QStringList texts() const {
        QStringList words;
        for (const TextLabel* label : descendants<TextLabel>(*m_page)) words.append(label->text());
        return words;
    }
    const nlohmann::json* stored(const char* key) const {
        const auto entry = house.defaults.stored.find(key);
        return entry == house.defaults.stored.end() ? nullptr : &entry->second;
    }

    SettingsHouse house;

private:
    std::unique_ptr<ModuleDetail> m_page;
};

TEST_F(ModuleDetailTest, TheShowSwitchWritesAtOnceAndFollowsTheSetting) {
    const ModuleDetail& detail = page(StatsModule::disk);
    EXPECT_FALSE(detail.showSwitch().isOn());
    detail.showSwitch().click();
    EXPECT_TRUE(house.settings.isEnabled(StatsModule::disk));
    EXPECT_TRUE(detail.showSwitch().isOn());
    EXPECT_EQ(*stored("enabledModules"), nlohmann::json({"cpu", "memory", "disk", "network"}));
    house.settings.setEnabled(StatsModule::disk, false);
    EXPECT_FALSE(detail.showSwitch().isOn());
}

TEST_F(ModuleDetailTest, AModuleThatIsOffHasBothLowerCardsDimmedAndThePreviewNot) {
    const ModuleDetail& detail = page(StatsModule::cpu);
    EXPECT_EQ(detail.optionsCard().opacity(), 1.0);
    EXPECT_EQ(detail.metricsCard().opacity(), 1.0);
    const QImage before = picture(detail.preview());
    detail.showSwitch().click();
    EXPECT_EQ(detail.optionsCard().opacity(), 0.5);
    EXPECT_EQ(detail.metricsCard().opacity(), 0.5);
    EXPECT_EQ(picture(detail.preview()), before) << "at full strength";
    detail.showSwitch().click();
    EXPECT_EQ(detail.optionsCard().opacity(), 1.0);
}

TEST_F(ModuleDetailTest, EveryControlWorksWhileTheModuleIsOffAndItsChoicesAreKept) {
    house.settings.setEnabled(StatsModule::cpu, false);
    ModuleDetail& detail = page(StatsModule::cpu);
    pick(detail.styleDropdown(), "Gauge");
    pick(detail.intervalDropdown(), "5 s");
    swatch(detail, "FF9500").click();
    detail.metricsGrid().boxes().front()->click();
    for (const bool on : {true, false}) {
        house.settings.setEnabled(StatsModule::cpu, on);
        EXPECT_EQ(house.settings.style(StatsModule::cpu), ModuleStyle::gauge);
        EXPECT_EQ(house.settings.interval(StatsModule::cpu), 5.0);
        EXPECT_EQ(house.settings.moduleColors().get().at(StatsModule::cpu), "FF9500");
        EXPECT_FALSE(house.settings.isMetricVisible("cores", StatsModule::cpu));
    }
}

TEST_F(ModuleDetailTest, TheStyleMenuHasTheNineStylesInOrderWithTheShownOneMarked) {
    house.settings.setStyle(ModuleStyle::pie, StatsModule::cpu);
    const ModuleDetail& detail = page();
    EXPECT_EQ(detail.styleDropdown().selection(), "pie");
    detail.styleDropdown().pill().click();
    ASSERT_TRUE(detail.styleDropdown().menu());
    QStringList titles;
    QStringList marked;
    for (const QAction* action : detail.styleDropdown().menu()->actions()) {
        titles.append(action->text());
        if (action->isChecked()) marked.append(action->text());
    }
    EXPECT_EQ(titles, (QStringList{"Graph + value", "Value only", "Graph only", "Gauge", "Gauge only", "Pie",
                                   "Pie only", "Bar", "Bar only"}));
    EXPECT_EQ(marked, QStringList{"Pie"});
}

TEST_F(ModuleDetailTest, PickingAStyleStoresItAndShowsItAtOnce) {
    ModuleDetail& detail = page();
    EXPECT_EQ(detail.styleDropdown().selection(), "graphValue") << "a module without a style";
    const QImage before = picture(detail.preview());
    pick(detail.styleDropdown(), "Bar only");
    EXPECT_EQ(house.settings.style(StatsModule::cpu), ModuleStyle::barOnly);
    EXPECT_EQ(*stored("moduleStyles"), nlohmann::json({{"cpu", "barOnly"}}));
    EXPECT_EQ(detail.styleDropdown().selection(), "barOnly");
    EXPECT_NE(picture(detail.preview()), before);
}

TEST_F(ModuleDetailTest, TheMenusPicturesAreTheItemsOfTheFiguresOfNow) {
    const ModuleDetail& detail = page();
    detail.styleDropdown().pill().click();
    const auto samples =
        StyleSamples::ofModule(StatsModule::cpu, house.snapshot.get(), MenuBarRenderer::Ink::automatic(), 1);
    const auto actions = detail.styleDropdown().menu()->actions();
    ASSERT_EQ(actions.size(), 9);
    for (std::size_t index = 0; index < kAllStyles.size(); ++index) {
        const QImage& sample = samples.at(std::string(rawValue(kAllStyles[index]))).image;
        const QImage shown = actions[static_cast<qsizetype>(index)]->icon().pixmap(sample.size()).toImage();
        EXPECT_EQ(shown.convertToFormat(sample.format()), sample) << rawValue(kAllStyles[index]);
    }
}

TEST_F(ModuleDetailTest, ThePicturesOfAnOpenMenuFollowAChangeOfTheScheme) {
    ModuleDetail& detail = page();
    detail.styleDropdown().pill().click();
    const auto picture = [&] {
        const QIcon icon = detail.styleDropdown().menu()->actions().constFirst()->icon();
        return icon.pixmap(icon.availableSizes().constFirst()).toImage();
    };
    const QImage light = picture();
    setScheme(detail, Scheme::dark);
    EXPECT_NE(picture(), light);
}

TEST_F(ModuleDetailTest, AnOpenStyleMenuFollowsTheTicksOfItsModuleAlone) {
    const ModuleDetail& detail = page();
    detail.styleDropdown().pill().click();
    const auto shownIcon = [&] { return detail.styleDropdown().menu()->actions()[1]->icon().cacheKey(); };
    const qint64 first = shownIcon();
    house.publish({StatsModule::memory});
    EXPECT_EQ(shownIcon(), first) << "another module's figures";
    house.publish({StatsModule::cpu});
    EXPECT_NE(shownIcon(), first);
}

TEST_F(ModuleDetailTest, AMenuThatOpensAfterTicksShowsTheLastFigures) {
    const ModuleDetail& detail = page();
    house.publish({StatsModule::cpu});
    house.publish({StatsModule::cpu});
    house.publish({StatsModule::cpu});
    detail.styleDropdown().pill().click();
    const auto samples =
        StyleSamples::ofModule(StatsModule::cpu, house.snapshot.get(), MenuBarRenderer::Ink::automatic(), 1);
    const QImage& wanted = samples.at("value").image;
    const QImage shown = detail.styleDropdown().menu()->actions()[1]->icon().pixmap(wanted.size()).toImage();
    EXPECT_EQ(shown.convertToFormat(wanted.format()), wanted);
}

TEST_F(ModuleDetailTest, TheIntervalMenuIsTheSameForEveryModule) {
    for (const StatsModule module : kAllModules) {
        std::vector<std::string> titles;
        for (const auto& option : page(module).intervalDropdown().options()) titles.push_back(option.title);
        EXPECT_EQ(titles, (std::vector<std::string>{"1 s", "2 s", "3 s", "5 s", "10 s"}));
    }
}

TEST_F(ModuleDetailTest, ABatteryLeftAloneShowsTenSecondsUnderAGlobalIntervalOfTwo) {
    house.settings.setSampleInterval(2);
    EXPECT_EQ(page(StatsModule::battery).intervalDropdown().selection(), "10");
    EXPECT_EQ(page(StatsModule::cpu).intervalDropdown().selection(), "2");
}

TEST_F(ModuleDetailTest, PickingTheIntervalAlreadyShownStoresItAndTheGlobalOneNoLongerCounts) {
    ModuleDetail& detail = page();
    house.settings.setSampleInterval(3);
    EXPECT_EQ(detail.intervalDropdown().selection(), "3") << "follows the global one";
    pick(detail.intervalDropdown(), "3 s");
    EXPECT_EQ(*stored("moduleIntervals"), nlohmann::json({{"cpu", 3.0}}));
    house.settings.setSampleInterval(5);
    EXPECT_EQ(detail.intervalDropdown().selection(), "3");
    EXPECT_EQ(house.settings.interval(StatsModule::cpu), 3.0);
}

TEST_F(ModuleDetailTest, AnIntervalThatHasNoOptionShowsAnEmptyPill) {
    for (const double seconds : {4.0, 0.5, 0.0, -2.0, std::numeric_limits<double>::infinity()}) {
        house.settings.setInterval(seconds, StatsModule::cpu);
        const ModuleDetail& detail = page();
        EXPECT_EQ(detail.intervalDropdown().pill().label(), "") << seconds;
        detail.intervalDropdown().pill().click();
        for (const QAction* action : detail.intervalDropdown().menu()->actions()) {
            EXPECT_FALSE(action->isChecked());
        }
    }
}

TEST_F(ModuleDetailTest, TheSwatchesAreAutoAndTheSevenColoursInOrder) {
    const ModuleDetail& detail = page();
    std::vector<std::string> hexes;
    QStringList toolTips;
    for (const Swatch* swatch : detail.swatches()) {
        hexes.push_back(swatch->hex());
        toolTips.append(swatch->toolTip());
    }
    EXPECT_EQ(hexes, (std::vector<std::string>{"", "0A84FF", "5856D6", "30B0C7", "34C759", "FF9500", "FF3B30",
                                               "FF2D92"}));
    EXPECT_EQ(toolTips, (QStringList{"Auto", "#0A84FF", "#5856D6", "#30B0C7", "#34C759", "#FF9500", "#FF3B30",
                                     "#FF2D92"}));
}

TEST_F(ModuleDetailTest, AColourIsStoredAndShownAtOnce) {
    const ModuleDetail& detail = page();
    EXPECT_EQ(chosen(detail), std::vector<std::string>{""}) << "a module without a colour follows the bar";
    const QImage before = picture(detail.preview());
    swatch(detail, "FF3B30").click();
    EXPECT_EQ(*stored("moduleColors"), nlohmann::json({{"cpu", "FF3B30"}}));
    EXPECT_EQ(chosen(detail), std::vector<std::string>{"FF3B30"});
    EXPECT_NE(picture(detail.preview()), before);
}

TEST_F(ModuleDetailTest, TheAutoSwatchRemovesTheEntryInsteadOfWritingAValue) {
    house.settings.setModuleColors({{StatsModule::cpu, "34C759"}, {StatsModule::disk, "FF2D92"}});
    const ModuleDetail& detail = page();
    ASSERT_EQ(chosen(detail), std::vector<std::string>{"34C759"});
    swatch(detail, "").click();
    EXPECT_EQ(*stored("moduleColors"), nlohmann::json({{"disk", "FF2D92"}}));
    EXPECT_EQ(chosen(detail), std::vector<std::string>{""});
}

TEST_F(ModuleDetailTest, AStoredColourThatIsNoSwatchMarksNone) {
    for (const char* damaged : {"zz", "", "0a84ff", "123456", "#0A84FF", "0A84FF0A84FF"}) {
        house.settings.setModuleColors({{StatsModule::cpu, damaged}});
        EXPECT_EQ(chosen(page()), std::vector<std::string>{}) << damaged;
    }
}

TEST_F(ModuleDetailTest, AColourThatBecomesDamagedWhileThePageIsOpenLosesItsMark) {
    house.settings.setModuleColors({{StatsModule::cpu, "34C759"}});
    const ModuleDetail& detail = page();
    house.settings.setModuleColors({{StatsModule::cpu, "what?"}});
    EXPECT_EQ(chosen(detail), std::vector<std::string>{});
    swatch(detail, "34C759").click();
    EXPECT_EQ(chosen(detail), std::vector<std::string>{"34C759"});
}

TEST_F(ModuleDetailTest, AnUnreadableColourIsDrawnAsTheAutomaticOne) {
    const QImage automatic = picture(page().preview());
    house.settings.setModuleColors({{StatsModule::cpu, "zz"}});
    EXPECT_EQ(picture(page().preview()), automatic);
}

TEST_F(ModuleDetailTest, ASettingsFileWithForeignValuesShowsTheDefaults) {
    house.defaults.stored["moduleStyles"] = {{"cpu", "hologram"}, {"gpu", "pie"}};
    house.defaults.stored["moduleColors"] = {{"cpu", 7}};
    house.defaults.stored["moduleIntervals"] = {{"cpu", "often"}};
    house.defaults.stored["moduleHiddenMetrics"] = {{"cpu", {"cores", 5, "no such metric"}}};
    house.defaults.stored["languageCode"] = "tlh";
    AppSettings damaged(house.defaults, house.bundle, house.loginItem, house.log);
    house.l10n.bootstrap();
    const ModuleDetail detail(damaged, StatsModule::cpu, house.l10n, house.snapshot);
    EXPECT_EQ(detail.styleDropdown().selection(), "graphValue");
    EXPECT_EQ(chosen(detail), std::vector<std::string>{""});
    EXPECT_EQ(detail.intervalDropdown().selection(), "2");
    EXPECT_FALSE(detail.metricsGrid().boxes().front()->isOn()) << "what can be read is kept";
    EXPECT_EQ(detail.styleDropdown().options().front().title, "Graph + value");
}

TEST_F(ModuleDetailTest, EveryMetricOfTheModuleHasABoxThatIsOnUnlessItIsHidden) {
    house.settings.setMetric("swap", false, StatsModule::memory);
    const ModuleDetail& detail = page(StatsModule::memory);
    QStringList on;
    QStringList off;
    for (const CheckBox* box : detail.metricsGrid().boxes()) {
        (box->isOn() ? on : off).append(box->accessibleName());
    }
    EXPECT_EQ(on.size(), 3);
    EXPECT_EQ(off, QStringList{QString::fromUtf8(house.l10n.string("metric.swap"))});
}

TEST_F(ModuleDetailTest, ABoxHidesAndShowsItsMetricAtOnce) {
    const ModuleDetail& detail = page(StatsModule::cpu);
    CheckBox& top = *detail.metricsGrid().boxes().at(3);
    top.click();
    EXPECT_EQ(*stored("moduleHiddenMetrics"), nlohmann::json({{"cpu", {"top"}}}));
    EXPECT_FALSE(top.isOn());
    top.click();
    EXPECT_EQ(*stored("moduleHiddenMetrics"), nlohmann::json({{"cpu", nlohmann::json::array()}}));
    EXPECT_TRUE(top.isOn());
}

TEST_F(ModuleDetailTest, HidingEveryMetricIsAllowed) {
    const ModuleDetail& detail = page(StatsModule::sensors);
    for (CheckBox* box : detail.metricsGrid().boxes()) box->click();
    for (const ModuleMetric& metric : metrics(StatsModule::sensors)) {
        EXPECT_FALSE(house.settings.isMetricVisible(metric.key, StatsModule::sensors));
    }
}

TEST_F(ModuleDetailTest, TheFiguresAreFollowedOnlyWhileThePageIsSeen) {
    ModuleDetail& detail = page();
    EXPECT_EQ(house.snapshot.subscriberCount(), 1u);
    detail.hide();
    EXPECT_EQ(house.snapshot.subscriberCount(), 0u);
    detail.show();
    EXPECT_EQ(house.snapshot.subscriberCount(), 1u);
}

TEST_F(ModuleDetailTest, ThePreviewMovesWithTheModulesFigures) {
    house.settings.setStyle(ModuleStyle::value, StatsModule::cpu);
    const ModuleDetail& detail = page();
    const QImage before = picture(detail.preview());
    house.publish({StatsModule::cpu});
    EXPECT_NE(picture(detail.preview()), before);
}

TEST_F(ModuleDetailTest, TheTextsFollowTheLanguageWhileThePageIsOpen) {
    page();
    EXPECT_TRUE(texts().contains("PREVIEW / MENU BAR"));
    EXPECT_TRUE(texts().contains("Data shown on click"));
    house.speak(AppLanguage::de);
    EXPECT_TRUE(texts().contains(QString::fromUtf8("VORSCHAU / MENÜLEISTE")));
    EXPECT_TRUE(texts().contains("Beim Anklicken angezeigte Daten"));
    EXPECT_FALSE(texts().contains("Data shown on click"));
}

TEST_F(ModuleDetailTest, TheChoicesAreRetextedButTheUnitOfSecondsIsNot) {
    const ModuleDetail& detail = page();
    house.speak(AppLanguage::ru);
    EXPECT_EQ(detail.styleDropdown().options().front().title, "График + значение");
    EXPECT_EQ(detail.intervalDropdown().options().front().title, "1 s");
    EXPECT_EQ(detail.swatches().front()->toolTip(), QString::fromUtf8("Авто"));
    EXPECT_EQ(detail.metricsGrid().boxes().front()->accessibleName(), QString::fromUtf8("Ядра"));
}

TEST_F(ModuleDetailTest, SamplesOfOneSizeAreWhatTheMenuShows) {
    const auto samples = ModuleDetail::uniformSizeSamples(StyleSamples::ofModule(
        StatsModule::network, house.snapshot.get(), MenuBarRenderer::Ink::automatic(), 2));
    ASSERT_EQ(samples.size(), 9u);
    for (const auto& [style, sample] : samples) {
        EXPECT_EQ(sample.image.size(), samples.begin()->second.image.size()) << style;
    }
}

TEST_F(ModuleDetailTest, AnOpenMenuGoesWithItsPage) {
    ModuleDetail& detail = page();
    detail.styleDropdown().pill().click();
    const QPointer<PillMenu> menu = detail.styleDropdown().menu();
    ASSERT_TRUE(menu);
    page(StatsModule::disk);
    EXPECT_TRUE(menu.isNull() || !menu->isVisible());
}

/// What stands in a page of this width, and whether it has its room there.
class ModuleDetailTextsTest : public ModuleDetailTest, public testing::WithParamInterface<AppLanguage> {};

TEST_P(ModuleDetailTextsTest, NothingIsCutOrOverlapsInTheNarrowestPage) {
    house.speak(GetParam());
    for (const QString& family : familiesToTry()) {
        const PinnedFont pinned(family);
        for (const StatsModule module : kAllModules) {
            ModuleDetail& detail = page(module);
            constexpr int kNarrowest = 880 - 220 - 198 - 60;
            detail.resize(kNarrowest, detail.heightForWidth(kNarrowest));
            QCoreApplication::processEvents();
            for (const QWidget* child : detail.findChildren<QWidget*>()) {
                if (!child->isVisible() || child->isWindow()) continue;
                EXPECT_TRUE(child->parentWidget()->rect().contains(child->geometry()))
                    << rawValue(module) << " " << child->metaObject()->className() << " "
                    << child->accessibleName().toStdString();
            }
            for (const TextLabel* label : descendants<TextLabel>(detail)) {
                if (!label->isVisible()) continue;
                EXPECT_GE(label->height(), label->heightForWidth(label->width()))
                    << label->text().toStdString();
            }
            for (const CheckBox* box : detail.metricsGrid().boxes()) {
                EXPECT_GE(box->height(), box->heightForWidth(box->width()))
                    << box->accessibleName().toStdString();
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AllLanguages, ModuleDetailTextsTest, testing::ValuesIn(kAllLanguages),
                         [](const auto& tried) {
                             std::string name(rawValue(tried.param));
                             std::erase(name, '-');
                             return name;
                         });

}  // namespace
}  // namespace velmora
