#include "panels/ModuleMenuView.h"

#include "panels/PanelFixture.h"

#include <gmock/gmock.h>

namespace velmora {
namespace {

using testing::SizeIs;

class ModuleMenuViewTest : public PanelFixture, public testing::WithParamInterface<StatsModule> {
protected:
    ModuleMenuViewTest() { snapshot.set(recordedFigures()); }

    void open() {
        view = makeView(GetParam());
        m_changed = view->changed.subscribe([this] { ++changes; });
    }

    /// What the panel says, without labels.
    static std::vector<std::string> texts(const MenuPanel& panel) {
        std::vector<std::string> texts = outline(panel);
        for (const MenuCard& card : panel.cards) {
            for (const auto& [label, value] : rows(card)) texts.push_back(value);
            for (const PanelView& piece : card.content) {
                if (const auto* graph = std::get_if<Graph>(&piece)) texts.push_back(graph->value);
            }
        }
        return texts;
    }

    std::unique_ptr<MenuView> view;
    int changes = 0;

private:
    Subscription m_changed;
};

INSTANTIATE_TEST_SUITE_P(AllModules, ModuleMenuViewTest, testing::ValuesIn(kAllModules),
                         [](const auto& module) { return std::string(rawValue(module.param)); });

TEST_P(ModuleMenuViewTest, IsOfItsModuleAndNamedAfterIt) {
    open();
    EXPECT_EQ(view->module(), GetParam());
    EXPECT_EQ(view->panel().name, l10n.string(std::string("mod.").append(rawValue(GetParam()))));
    EXPECT_FALSE(view->panel().cards.empty());
}

TEST_P(ModuleMenuViewTest, AnswersAnewWhenItsFiguresWereSampledAndNotForOthers) {
    open();
    for (const StatsModule sampled : kAllModules) {
        changes = 0;
        publish({sampled});
        const bool isShown =
            sampled == GetParam() || (GetParam() == StatsModule::sensors && sampled == StatsModule::cpu);
        EXPECT_EQ(changes, isShown ? 1 : 0) << rawValue(sampled);
    }
    changes = 0;
    publish(ModuleSet::all());
    EXPECT_EQ(changes, 1) << "once, however many of its sources a tick sampled";
    publish({});
    EXPECT_EQ(changes, 1);
}

TEST_P(ModuleMenuViewTest, ShowsTheFiguresOfThePresentSnapshot) {
    open();
    const std::vector<std::string> before = texts(view->panel());
    StatsSnapshot next;
    next.updated = ModuleSet::all();
    snapshot.set(next);
    EXPECT_NE(texts(view->panel()), before);
}

TEST_P(ModuleMenuViewTest, ASettingShowsAfterOneHop) {
    open();
    const std::size_t cards = view->panel().cards.size();
    settings.setMetric(std::string(metrics(GetParam()).back().key), false, GetParam());
    EXPECT_EQ(changes, 0) << "the change is told before the new value stands";
    runLoop.runPostedRound();
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(view->panel().cards.size(), cards - 1);
}

TEST_P(ModuleMenuViewTest, AChangeOfLanguageShowsWhileThePanelIsOpen) {
    open();
    changes = 0;
    l10n.apply("de");
    EXPECT_EQ(changes, 1);
    const MenuPanel panel = view->panel();
    EXPECT_EQ(panel.name, l10n.string(std::string("mod.").append(rawValue(GetParam()))));
    EXPECT_EQ(panel.footer.shortcuts.back().help, l10n.string("menu.settings"));
    EXPECT_NE(panel.footer.shortcuts.back().help, "Settings…");
}

TEST_P(ModuleMenuViewTest, EveryLanguageHasEveryTextOfThePanel) {
    open();
    for (const char* tag :
         {"en", "de", "es", "fr", "it", "ja", "ko", "nl", "pl", "pt-BR", "ru", "tr", "zh-Hans", "zh-Hant"}) {
        l10n.apply(tag);
        for (const std::string& text : outline(view->panel())) {
            EXPECT_FALSE(text.empty()) << tag;
            for (const std::string_view prefix :
                 {"mod.", "metric.", "stats.", "mem.", "disk.", "net.", "sen.", "bat.", "cpu."})
                EXPECT_FALSE(text.starts_with(prefix)) << tag << ": " << text;
        }
    }
}

TEST_P(ModuleMenuViewTest, FooterEndsInTheOwnSettingsAndItsButtonsClose) {
    open();
    const auto shortcuts = view->panel().footer.shortcuts;
    ASSERT_THAT(shortcuts, SizeIs(1));
    EXPECT_EQ(shortcuts[0].id, "velmora.settings");
    shortcuts[0].action();
    EXPECT_EQ(dismissCount, 1);
    EXPECT_EQ(router.selectedModule.get(), GetParam());
}

TEST_P(ModuleMenuViewTest, ToolsAreLookedUpAsThePanelOpensAndNotAtEveryFigure) {
    open();
    const int lookups = shortcutTargets.findCount;
    publish(ModuleSet::all());
    for (int time = 0; time < 3; ++time) (void)view->panel();
    EXPECT_EQ(shortcutTargets.findCount, lookups);
}

TEST_P(ModuleMenuViewTest, TimersAndSubscriptionsEndWithThePanel) {
    const std::size_t languageBefore = l10n.language().subscriberCount();
    open();
    view.reset();
    EXPECT_EQ(runLoop.timerCount(), 0u);
    EXPECT_EQ(snapshot.subscriberCount(), 0u);
    EXPECT_EQ(settings.willChange().subscriberCount(), 0u);
    EXPECT_EQ(l10n.language().subscriberCount(), languageBefore);
    EXPECT_EQ(liveTools.count(), 0u);
}

TEST_P(ModuleMenuViewTest, WhatComesAfterThePanelDoesNothing) {
    open();
    hideAll(GetParam());
    view.reset();
    changes = 0;
    for (const auto& call : std::vector(lister.calls)) call.completion(" 1.0 7 one\n");
    advance(10);
    publish(ModuleSet::all());
    l10n.apply("fr");
    EXPECT_EQ(changes, 0);
}

TEST_P(ModuleMenuViewTest, AnAnswerThatOutlivesThePanelStaysWhole) {
    open();
    const MenuPanel kept = view->panel();
    view.reset();
    for (const MenuCard& card : kept.cards) {
        for (const PanelView& piece : card.content) {
            if (const auto* graph = std::get_if<Graph>(&piece); graph && graph->hover) {
                EXPECT_THAT(graph->hover->rows(59), SizeIs(2));
            }
            if (const auto* list = std::get_if<ProcessCard>(&piece)) {
                EXPECT_FALSE(list->format(1.5).empty());
            }
        }
    }
    kept.footer.shortcuts.back().action();
    EXPECT_THAT(shownTabs, SizeIs(1));
}

TEST_P(ModuleMenuViewTest, APanelMayBeClosedFromItsOwnChange) {
    open();
    const Subscription closing = view->changed.subscribe([this] { view.reset(); });
    publish(ModuleSet::all());
    EXPECT_FALSE(view);
    publish(ModuleSet::all());
}

TEST_P(ModuleMenuViewTest, APanelMayBeClosedFromAChangeOfLanguageOrSettings) {
    open();
    {
        const Subscription closing = view->changed.subscribe([this] { view.reset(); });
        l10n.apply("de");
        EXPECT_FALSE(view);
    }
    open();
    const Subscription closing = view->changed.subscribe([this] { view.reset(); });
    settings.setSampleInterval(5);
    settings.setSampleInterval(10);
    runLoop.runPosted();
    EXPECT_FALSE(view);
}

}  // namespace
}  // namespace velmora
