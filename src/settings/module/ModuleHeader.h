#pragma once

#include "base/Subscription.h"
#include "model/StatsModule.h"

#include <QColor>
#include <QWidget>

#include <vector>

namespace velmora {

class AppSettings;
class L10n;
class SymbolTile;
class TextLabel;

/// The heading of a module's page: its symbol in its colour, its name, and what it tells.
class ModuleHeader final : public QWidget {
public:
    ModuleHeader(const AppSettings& settings, StatsModule module, const L10n& l10n,
                 QWidget* parent = nullptr);

    /// The module's own colour, or the accent colour where it follows the bar.
    QColor symbolColor() const;

private:
    void retext();

    const AppSettings& m_settings;
    StatsModule m_module;
    const L10n& m_l10n;
    SymbolTile* m_tile;
    TextLabel* m_title;
    TextLabel* m_subtitle;
    std::vector<Subscription> m_subscriptions;
};

}  // namespace velmora
