#pragma once

#include "base/Subscription.h"
#include "model/StatsModule.h"
#include "settings/window/SettingsCollaborators.h"

#include <QWidget>

#include <optional>
#include <vector>

namespace velmora {

class DetailPane;
class Level1Sidebar;
class Level2Sidebar;
class PageHeading;

/// The content of the settings window: the sidebars and the selected page. It follows the router, and makes a
/// page when it is selected.
class SettingsView final : public QWidget {
public:
    explicit SettingsView(const SettingsCollaborators& collaborators, QWidget* parent = nullptr);

    Level1Sidebar& level1() const { return *m_level1; }
    /// Null unless the tab is the modules.
    Level2Sidebar* level2() const { return m_level2; }
    DetailPane& detail() const { return *m_detail; }

    /// The first sidebar's part of the view.
    QRect seeThroughArea() const;
    void setSeesThrough(bool seesThrough);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void showTab(SettingsTab tab);
    void showModule(StatsModule module);
    void showPage(SettingsTab tab);
    void retextHeading();
    void place();

    const SettingsCollaborators& m_with;
    Level1Sidebar* m_level1;
    Level2Sidebar* m_level2 = nullptr;
    DetailPane* m_detail;
    PageHeading* m_heading = nullptr;  ///< Of the page that is shown; null for a module's.
    std::optional<SettingsTab> m_tab;
    std::optional<StatsModule> m_module;  ///< Whose page is shown.
    std::vector<Subscription> m_subscriptions;
};

}  // namespace velmora
