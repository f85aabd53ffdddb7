#pragma once

#include "base/Subscription.h"
#include "model/StatsModule.h"

#include <QColor>
#include <QWidget>

#include <map>
#include <vector>

namespace velmora {

class AppSettings;
class CountLabel;
class L10n;
class Level2Row;
class SettingsRouter;
class TextLabel;

/// The list of the modules, each with a dot that tells whether it is on. A choice writes the router.
class Level2Sidebar final : public QWidget {
public:
    Level2Sidebar(SettingsRouter& router, const AppSettings& settings, const L10n& l10n,
                  QWidget* parent = nullptr);

    Level2Row& row(StatsModule module) const { return *m_rows.at(module); }
    /// How many modules are on, as the header says it.
    const CountLabel& count() const { return *m_count; }

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* makeList();
    void retext();
    void showSelection();
    void showEnabled();

    SettingsRouter& m_router;
    const AppSettings& m_settings;
    const L10n& m_l10n;
    TextLabel* m_title;
    CountLabel* m_count;
    TextLabel* m_hint;
    std::map<StatsModule, Level2Row*> m_rows;
    std::vector<Subscription> m_subscriptions;
};

}  // namespace velmora
