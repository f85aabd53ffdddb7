#include "settings/sidebars/Level1Sidebar.h"

#include "base/FormatText.h"
#include "core/AppSettings.h"
#include "l10n/L10n.h"
#include "settings/blocks/TextLabel.h"
#include "settings/sidebars/Level1Row.h"
#include "settings/sidebars/SidebarDivider.h"
#include "settings/sidebars/SidebarFoot.h"
#include "settings/sidebars/SidebarScroll.h"

#include <QVBoxLayout>

namespace velmora {
namespace {

constexpr int kHeadingLeft = 18;
constexpr int kHeadingTop = 18;
constexpr int kHeadingBottom = 10;
constexpr int kSides = 10;
constexpr int kRowSpacing = 2;
constexpr int kLeastSpaceAboveFoot = 24;

}  // namespace

Level1Sidebar::Level1Sidebar(SettingsRouter& router, const AppSettings& settings, const L10n& l10n,
                             const Bundle& bundle, const std::vector<SettingsTab>& tabs, QWidget* parent)
    : VisualEffectView(Material::sidebar, Blending::behindWindow, parent),
      m_router(router),
      m_settings(settings),
      m_l10n(l10n),
      m_heading(new TextLabel(
          {.size = 12, .weight = QFont::DemiBold, .rank = InkRank::secondary, .fit = TextFit::elide})) {
    m_heading->setContentsMargins(0, 0, 0, 0);
    auto* const headingLine = new QVBoxLayout;
    headingLine->setContentsMargins(kHeadingLeft, kHeadingTop, kSides, kHeadingBottom);
    headingLine->addWidget(m_heading);

    auto* const stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(0);
    stack->addLayout(headingLine);
    stack->addWidget(new SidebarScroll(makeContent(bundle, tabs), SidebarScroll::Indicator::none), 1);

    m_subscriptions.push_back(m_l10n.language().subscribe([this](AppLanguage) { retext(); }));
    m_subscriptions.push_back(m_router.selectedTab.subscribe([this](SettingsTab) { showSelection(); }));
    m_subscriptions.push_back(
        m_settings.enabledModules().subscribe([this](const std::vector<StatsModule>&) { showCount(); }));
}

QWidget* Level1Sidebar::makeContent(const Bundle& bundle, const std::vector<SettingsTab>& tabs) {
    auto* const list = new QVBoxLayout;
    list->setContentsMargins(kSides, 0, kSides, 0);
    list->setSpacing(kRowSpacing);
    auto* const content = new QWidget;
    for (const SettingsTab tab : tabs) {
        if (tab == SettingsTab::account) list->addWidget(new SidebarDivider(content));
        m_rows.push_back(makeRow(tab));
        list->addWidget(m_rows.back());
    }
    auto* const stack = new QVBoxLayout(content);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(0);
    stack->addLayout(list);
    stack->addSpacing(kLeastSpaceAboveFoot);
    stack->addStretch(1);
    stack->addWidget(new SidebarFoot(bundle, content));
    return content;
}

Level1Row* Level1Sidebar::makeRow(SettingsTab tab) {
    return new Level1Row(tab, [this, tab] { m_router.selectedTab.set(tab); });
}

void Level1Sidebar::retext() {
    m_heading->setWords(m_l10n.string("settings.title"));
    for (Level1Row* row : m_rows) {
        const std::string_view title = m_l10n.string(std::string("tab.").append(rawValue(row->section())));
        row->setTitle(QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size())));
    }
}

void Level1Sidebar::showSelection() {
    for (Level1Row* row : m_rows) row->setChosen(row->section() == m_router.selectedTab.get());
}

void Level1Sidebar::showCount() {
    const std::string count = formatText("%d / %d", {m_settings.enabledModules().get().size(), kModuleCount});
    for (Level1Row* row : m_rows) {
        if (row->section() == SettingsTab::modules) row->setCount(QString::fromStdString(count));
    }
}

}  // namespace velmora
