#pragma once

#include "base/Published.h"
#include "base/Subscription.h"
#include "menubar/MenuBarRenderer.h"
#include "model/StatsModule.h"
#include "model/StatsSnapshot.h"

#include <QWidget>

#include <map>
#include <string>
#include <vector>

namespace velmora {

class AppSettings;
class FooterNote;
class L10n;
class MetricsGrid;
class PreviewStrip;
class SettingsCard;
class SettingsRow;
class Swatch;
class TextLabel;
class ToggleSwitch;
class TwoLineHeading;
class VMDropdown;

/// The page of one module: whether it is shown, in which style, how often it is read, in which colour, and
/// what its panel shows. It holds no state of its own: it shows the settings as they are, and each control
/// writes at once. Only while it is seen does it follow the figures.
class ModuleDetail final : public QWidget {
public:
    ModuleDetail(AppSettings& settings, StatsModule module, const L10n& l10n,
                 const Published<StatsSnapshot>& snapshot, QWidget* parent = nullptr);

    /// Brings pictures of the styles to one size, so that the titles beside them stand in one column.
    static std::map<std::string, MenuBarImage> uniformSizeSamples(
        const std::map<std::string, MenuBarImage>& samples);

    StatsModule module() const { return m_module; }
    PreviewStrip& preview() const { return *m_preview; }
    SettingsCard& optionsCard() const { return *m_optionsCard; }
    SettingsCard& metricsCard() const { return *m_metricsCard; }
    ToggleSwitch& showSwitch() const { return *m_show; }
    VMDropdown& styleDropdown() const { return *m_style; }
    VMDropdown& intervalDropdown() const { return *m_interval; }
    /// The one that follows the bar first, then the colours.
    const std::vector<Swatch*>& swatches() const { return m_swatches; }
    MetricsGrid& metricsGrid() const { return *m_metrics; }

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    SettingsCard* makePreviewCard();
    SettingsCard* makeOptionsCard();
    QWidget* makeColorBlock();
    SettingsCard* makeMetricsCard();
    void followSettings();

    void retext();
    void showEnabled();
    void showStyle();
    void showInterval();
    void showColor();
    void figuresChanged(const StatsSnapshot& snapshot);
    void drawSamples();
    MenuBarImage drawItem(double ratio) const;
    MenuBarRenderer::Ink ink() const;
    bool isDark() const;
    void chooseColor(const std::string& hex);

    AppSettings& m_settings;
    const StatsModule m_module;
    const L10n& m_l10n;
    const Published<StatsSnapshot>& m_snapshot;

    TextLabel* m_previewHeading = nullptr;
    PreviewStrip* m_preview = nullptr;
    SettingsCard* m_optionsCard = nullptr;
    SettingsRow* m_showRow = nullptr;
    ToggleSwitch* m_show = nullptr;
    SettingsRow* m_styleRow = nullptr;
    VMDropdown* m_style = nullptr;
    SettingsRow* m_intervalRow = nullptr;
    VMDropdown* m_interval = nullptr;
    TwoLineHeading* m_colorHeading = nullptr;
    std::vector<Swatch*> m_swatches;
    SettingsCard* m_metricsCard = nullptr;
    TwoLineHeading* m_metricsHeading = nullptr;
    MetricsGrid* m_metrics = nullptr;
    FooterNote* m_footer = nullptr;

    std::vector<Subscription> m_subscriptions;
    Subscription m_figures;
};

}  // namespace velmora
