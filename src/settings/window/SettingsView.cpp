#include "settings/window/SettingsView.h"

#include "core/AppSettings.h"
#include "l10n/L10n.h"
#include "settings/blocks/PageHeading.h"
#include "settings/module/ModuleDetail.h"
#include "settings/module/ModuleHeader.h"
#include "settings/sidebars/Level1Sidebar.h"
#include "settings/sidebars/Level2Sidebar.h"
#include "settings/window/DetailPane.h"
#include "settings/window/OverlayScrollers.h"
#include "settings/window/SettingsFrames.h"

namespace velmora {
namespace {

std::vector<SettingsTab> tabsWithPages(const SettingsCollaborators& with) {
    std::vector<SettingsTab> tabs;
    for (const SettingsTab tab : kAllSettingsTabs) {
        if (with.hasPage(tab)) tabs.push_back(tab);
    }
    return tabs;
}

}  // namespace

SettingsView::SettingsView(const SettingsCollaborators& collaborators, QWidget* parent)
    : QWidget(parent),
      m_with(collaborators),
      m_level1(new Level1Sidebar(collaborators.router, collaborators.settings, collaborators.l10n,
                                 collaborators.bundle, tabsWithPages(collaborators), this)),
      m_detail(new DetailPane(this)) {
    // What is made from here on is laid out once, in the size that it is most likely to be shown in.
    resize(SettingsFrames::tabWidth(m_with.router.selectedTab.get()), SettingsFrames::kHeight);
    m_subscriptions.push_back(m_with.l10n.language().subscribe([this](AppLanguage) { retextHeading(); }));
    m_subscriptions.push_back(m_with.router.selectedTab.subscribe([this](SettingsTab tab) { showTab(tab); }));
    m_subscriptions.push_back(m_with.router.selectedModule.subscribe([this](StatsModule module) {
        if (m_tab == SettingsTab::modules) showModule(module);
    }));
}

void SettingsView::showTab(SettingsTab tab) {
    if (m_tab == tab) return;
    m_tab = tab;
    place();
    if (m_level2) {
        // It may be what asked for the change.
        m_level2->hide();
        m_level2->deleteLater();
        m_level2 = nullptr;
    }
    if (tab == SettingsTab::modules) {
        m_level2 = new Level2Sidebar(m_with.router, m_with.settings, m_with.l10n, this);
        m_level2->show();
        showModule(m_with.router.selectedModule.get());
    } else {
        showPage(tab);
    }
    setMinimumSize(SettingsFrames::minimumContentWidth(tab), SettingsFrames::kMinimumContentHeight);
    forceOverlayScrollers(*this);
    place();
}

void SettingsView::showModule(StatsModule module) {
    if (m_module == module) return;
    m_module = module;
    m_heading = nullptr;
    m_detail->showModule(new ModuleHeader(m_with.settings, module, m_with.l10n),
                         new ModuleDetail(m_with.settings, module, m_with.l10n, m_with.snapshot));
}

void SettingsView::showPage(SettingsTab tab) {
    m_module.reset();
    m_heading = new PageHeading;
    retextHeading();
    const SettingsPage* const page = m_with.page(tab);
    m_detail->showPage(m_heading, page && page->make ? page->make(nullptr) : nullptr);
}

void SettingsView::retextHeading() {
    if (!m_heading) return;
    const std::string_view raw = rawValue(*m_tab);
    m_heading->setTexts(m_with.l10n.string(std::string("tab.").append(raw)),
                        m_with.l10n.string(std::string("sub.").append(raw)));
}

QRect SettingsView::seeThroughArea() const {
    return m_level1->geometry();
}

void SettingsView::setSeesThrough(bool seesThrough) {
    m_level1->setSeesThrough(seesThrough);
}

void SettingsView::resizeEvent(QResizeEvent*) {
    place();
}

void SettingsView::place() {
    const SettingsFrames::Columns columns =
        SettingsFrames::columns(m_tab.value_or(SettingsTab::modules), size());
    m_level1->setGeometry(columns.level1);
    if (m_level2) m_level2->setGeometry(columns.level2);
    m_detail->setGeometry(columns.detail);
}

}  // namespace velmora
