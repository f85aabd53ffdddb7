#pragma once

#include "base/Subscription.h"
#include "core/SettingsRouter.h"
#include "settings/sidebars/VisualEffectView.h"

#include <vector>

namespace velmora {

class AppSettings;
class Bundle;
class L10n;
class Level1Row;
class TextLabel;

/// The list of tabs, with the program's icon and version below. A choice writes the router.
class Level1Sidebar final : public VisualEffectView {
public:
    /// `tabs` are those that have a page, in their order.
    Level1Sidebar(SettingsRouter& router, const AppSettings& settings, const L10n& l10n, const Bundle& bundle,
                  const std::vector<SettingsTab>& tabs, QWidget* parent = nullptr);

    const std::vector<Level1Row*>& rows() const { return m_rows; }

private:
    QWidget* makeContent(const Bundle& bundle, const std::vector<SettingsTab>& tabs);
    Level1Row* makeRow(SettingsTab tab);
    void retext();
    void showSelection();
    void showCount();

    SettingsRouter& m_router;
    const AppSettings& m_settings;
    const L10n& m_l10n;
    TextLabel* m_heading;
    std::vector<Level1Row*> m_rows;
    std::vector<Subscription> m_subscriptions;
};

}  // namespace velmora
