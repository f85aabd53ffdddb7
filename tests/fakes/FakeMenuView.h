#pragma once

#include "panels/MenuView.h"

#include <functional>
#include <utility>

namespace velmora {

/// The content of a panel as a test sets it.
class FakeMenuView final : public MenuView {
public:
    /// What outlives the content and tells of it.
    struct Log {
        int alive = 0;  ///< Contents that exist.
        int made = 0;   ///< Contents that were ever made.
        int asked = 0;  ///< Calls of `panel`.
        FakeMenuView* last = nullptr;
    };

    FakeMenuView(StatsModule module, Log& log, std::function<void()> dismissPanel = {})
        : dismiss(std::move(dismissPanel)), m_module(module), m_log(log) {
        ++m_log.alive;
        ++m_log.made;
        m_log.last = this;
        shown.name = rawValue(module);
    }
    ~FakeMenuView() override {
        --m_log.alive;
        if (m_log.last == this) m_log.last = nullptr;
    }

    StatsModule module() const override { return m_module; }
    MenuPanel panel() const override {
        ++m_log.asked;
        return shown;
    }

    MenuPanel shown;
    std::function<void()> dismiss;

private:
    const StatsModule m_module;
    Log& m_log;
};

/// A panel of so many cards with one row each, and one shortcut.
inline MenuPanel panelOfCards(int cards, std::function<void()> shortcut = {}) {
    MenuPanel panel;
    panel.name = "Processor";
    for (int card = 0; card < cards; ++card) {
        panel.cards.emplace_back();
        panel.cards.back().content.emplace_back(MetricRow{.tint = {}, .label = "Idle", .value = "97 %"});
    }
    panel.footer.shortcuts.push_back(
        {"velmora.settings", "chart.bar.xaxis", "Settings", true, std::move(shortcut)});
    return panel;
}

}  // namespace velmora
