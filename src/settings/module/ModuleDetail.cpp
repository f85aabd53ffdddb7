#include "settings/module/ModuleDetail.h"

#include "core/AppSettings.h"
#include "l10n/L10n.h"
#include "model/ModuleStyle.h"
#include "settings/blocks/FooterNote.h"
#include "settings/blocks/RowDivider.h"
#include "settings/blocks/SettingsCard.h"
#include "settings/blocks/SettingsRow.h"
#include "settings/blocks/TextLabel.h"
#include "settings/blocks/TwoLineHeading.h"
#include "settings/controls/SettingsScheme.h"
#include "settings/controls/ToggleSwitch.h"
#include "settings/controls/VMDropdown.h"
#include "settings/module/MetricsGrid.h"
#include "settings/module/ModuleChoices.h"
#include "settings/module/PreviewStrip.h"
#include "settings/module/StyleSamples.h"
#include "settings/module/Swatch.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace velmora {
namespace {

constexpr int kSpacing = 16;
constexpr int kLabelMinWidth = 120;
constexpr QSize kStyleSize(150, 28);
constexpr QSize kIntervalSize(100, 28);
constexpr QMargins kBlockInsets(16, 13, 16, 13);
constexpr int kBlockSpacing = 10;
constexpr double kDimmed = 0.5;

/// A column of a card with the insets and spacing of its blocks.
QVBoxLayout* blockLayout(QWidget* block) {
    auto* const stack = new QVBoxLayout(block);
    stack->setContentsMargins(kBlockInsets);
    stack->setSpacing(kBlockSpacing);
    return stack;
}

}  // namespace

ModuleDetail::ModuleDetail(AppSettings& settings, StatsModule module, const L10n& l10n,
                           const Published<StatsSnapshot>& snapshot, QWidget* parent)
    : QWidget(parent), m_settings(settings), m_module(module), m_l10n(l10n), m_snapshot(snapshot) {
    auto* const stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(kSpacing);
    stack->addWidget(makePreviewCard());
    stack->addWidget(makeOptionsCard());
    stack->addWidget(makeMetricsCard());
    m_footer = new FooterNote;
    stack->addWidget(m_footer);
    followSettings();
}

std::map<std::string, MenuBarImage> ModuleDetail::uniformSizeSamples(
    const std::map<std::string, MenuBarImage>& samples) {
    return StyleSamples::uniformSize(samples);
}

SettingsCard* ModuleDetail::makePreviewCard() {
    constexpr QMargins kInsets(14, 12, 14, 12);
    constexpr int kPreviewSpacing = 9;
    auto* const block = new QWidget;
    auto* const stack = new QVBoxLayout(block);
    stack->setContentsMargins(kInsets);
    stack->setSpacing(kPreviewSpacing);
    m_previewHeading = new TextLabel({.size = 10, .weight = QFont::DemiBold, .rank = InkRank::tertiary});
    stack->addWidget(m_previewHeading);
    m_preview = new PreviewStrip([this](double ratio) { return drawItem(ratio); });
    stack->addWidget(m_preview);
    auto* const card = new SettingsCard;
    card->add(block);
    return card;
}

SettingsCard* ModuleDetail::makeOptionsCard() {
    m_show = new ToggleSwitch;
    m_show->onToggle([this](bool on) { m_settings.setEnabled(m_module, on); });
    m_showRow = new SettingsRow(QFont::Normal, kLabelMinWidth, m_show);

    m_style = new VMDropdown;
    m_style->setFixedSize(kStyleSize);
    m_style->onPick([this](const std::string& raw) {
        if (const auto style = styleFromRawValue(raw)) m_settings.setStyle(*style, m_module);
    });
    m_style->onOpen([this] { drawSamples(); });
    m_styleRow = new SettingsRow(QFont::Normal, kLabelMinWidth, m_style);

    m_interval = new VMDropdown;
    m_interval->setFixedSize(kIntervalSize);
    m_interval->onPick([this](const std::string& value) {
        if (const auto seconds = ModuleChoices::intervalFromValue(value))
            m_settings.setInterval(*seconds, m_module);
    });
    m_intervalRow = new SettingsRow(QFont::Normal, kLabelMinWidth, m_interval);

    m_optionsCard = new SettingsCard;
    m_optionsCard->add(m_showRow);
    m_optionsCard->add(new RowDivider);
    m_optionsCard->add(m_styleRow);
    m_optionsCard->add(new RowDivider);
    m_optionsCard->add(m_intervalRow);
    m_optionsCard->add(new RowDivider);
    m_optionsCard->add(makeColorBlock());
    return m_optionsCard;
}

QWidget* ModuleDetail::makeColorBlock() {
    constexpr int kSwatchSpacing = 8;
    auto* const block = new QWidget;
    QVBoxLayout* const stack = blockLayout(block);
    m_colorHeading = new TwoLineHeading;
    stack->addWidget(m_colorHeading);
    auto* const row = new QHBoxLayout;
    row->setSpacing(kSwatchSpacing);
    const auto addSwatch = [&](const std::string& hex) {
        m_swatches.push_back(new Swatch(hex, [this, hex] { chooseColor(hex); }));
        row->addWidget(m_swatches.back());
    };
    addSwatch({});
    for (const std::string_view hex : ModuleChoices::kColors) addSwatch(std::string(hex));
    row->addStretch(1);
    stack->addLayout(row);
    return block;
}

SettingsCard* ModuleDetail::makeMetricsCard() {
    auto* const block = new QWidget;
    QVBoxLayout* const stack = blockLayout(block);
    m_metricsHeading = new TwoLineHeading;
    stack->addWidget(m_metricsHeading);
    m_metrics = new MetricsGrid(m_module, [this](const std::string& key, bool visible) {
        m_settings.setMetric(key, visible, m_module);
    });
    stack->addWidget(m_metrics);
    m_metricsCard = new SettingsCard;
    m_metricsCard->add(block);
    return m_metricsCard;
}

void ModuleDetail::followSettings() {
    m_subscriptions.push_back(m_l10n.language().subscribe([this](AppLanguage) { retext(); }));
    m_subscriptions.push_back(
        m_settings.enabledModules().subscribe([this](const std::vector<StatsModule>&) { showEnabled(); }));
    m_subscriptions.push_back(
        m_settings.moduleStyles().subscribe([this](const AppSettings::Styles&) { showStyle(); }));
    m_subscriptions.push_back(
        m_settings.moduleIntervals().subscribe([this](const AppSettings::Intervals&) { showInterval(); }));
    m_subscriptions.push_back(m_settings.sampleInterval().subscribe([this](double) { showInterval(); }));
    m_subscriptions.push_back(
        m_settings.moduleColors().subscribe([this](const AppSettings::Colors&) { showColor(); }));
    m_subscriptions.push_back(m_settings.moduleMetrics().subscribe(
        [this](const AppSettings::HiddenMetrics&) { m_metrics->showHidden(m_settings); }));
}

void ModuleDetail::retext() {
    const auto words = [this](std::string_view key) { return m_l10n.string(key); };
    m_previewHeading->setWords(words("mod.preview"));
    m_showRow->setTexts(words("mod.show"), words("mod.showSub"));
    m_styleRow->setTexts(words("mod.style"));
    m_intervalRow->setTexts(words("mod.interval"));
    m_colorHeading->setTexts(words("mod.color"), words("mod.colorSub"));
    const std::string_view automatic = words("common.auto");
    m_swatches.front()->setAutoTitle(
        QString::fromUtf8(automatic.data(), static_cast<qsizetype>(automatic.size())));
    m_metricsHeading->setTexts(words("mod.metrics"), words("mod.metricsSub"));
    m_metrics->retext(m_l10n);
    m_footer->setText(words("mod.footer"));

    std::vector<VMDropdown::Option> styles;
    styles.reserve(kAllStyles.size());
    for (const ModuleStyle style : kAllStyles) {
        const std::string raw(rawValue(style));
        styles.push_back({raw, std::string(words("style." + raw))});
    }
    m_style->setOptions(std::move(styles));
    std::vector<VMDropdown::Option> intervals;
    intervals.reserve(ModuleChoices::kIntervals.size());
    for (const double seconds : ModuleChoices::kIntervals) {
        intervals.push_back({ModuleChoices::intervalValue(seconds), ModuleChoices::intervalTitle(seconds)});
    }
    m_interval->setOptions(std::move(intervals));
}

/// A module that is off has its choices kept for when it is on again: they are weaker, and work.
void ModuleDetail::showEnabled() {
    const bool enabled = m_settings.isEnabled(m_module);
    m_show->setOn(enabled);
    m_optionsCard->setOpacity(enabled ? 1.0 : kDimmed);
    m_metricsCard->setOpacity(enabled ? 1.0 : kDimmed);
}

void ModuleDetail::showStyle() {
    m_style->setSelection(std::string(rawValue(m_settings.style(m_module))));
    m_preview->update();
}

void ModuleDetail::showInterval() {
    m_interval->setSelection(ModuleChoices::intervalValue(m_settings.interval(m_module)));
}

void ModuleDetail::showColor() {
    const AppSettings::Colors& colors = m_settings.moduleColors().get();
    const auto entry = colors.find(m_module);
    for (Swatch* swatch : m_swatches) {
        const bool isAuto = swatch->hex().empty();
        swatch->setChosen(entry == colors.end() ? isAuto : !isAuto && swatch->hex() == entry->second);
    }
    m_preview->update();
    if (m_style->isOpen()) drawSamples();
}

void ModuleDetail::chooseColor(const std::string& hex) {
    AppSettings::Colors colors = m_settings.moduleColors().get();
    if (hex.empty()) {
        colors.erase(m_module);
    } else {
        colors[m_module] = hex;
    }
    m_settings.setModuleColors(colors);
}

void ModuleDetail::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    m_figures = m_snapshot.subscribe([this](const StatsSnapshot& snapshot) { figuresChanged(snapshot); });
}

void ModuleDetail::hideEvent(QHideEvent* event) {
    m_figures.reset();
    QWidget::hideEvent(event);
}

void ModuleDetail::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    // Ink for the old ground would not be seen on the new one.
    if (event->type() == QEvent::PaletteChange && m_style->isOpen()) drawSamples();
}

void ModuleDetail::figuresChanged(const StatsSnapshot& snapshot) {
    if (!snapshot.updated.contains(m_module)) return;
    m_preview->update();
    // The pictures of a closed menu are seen by nobody.
    if (m_style->isOpen()) drawSamples();
}

void ModuleDetail::drawSamples() {
    VMDropdown::Images images;
    for (const auto& [style, sample] :
         StyleSamples::ofModule(m_module, m_snapshot.get(), ink(), devicePixelRatioF())) {
        images.emplace(style, MenuBarRenderer::tinted(sample, isDark()));
    }
    m_style->setOptionImages(std::move(images));
}

MenuBarImage ModuleDetail::drawItem(double ratio) const {
    return MenuBarRenderer::render(m_settings.style(m_module), m_module, m_snapshot.get(), ink(), ratio);
}

MenuBarRenderer::Ink ModuleDetail::ink() const {
    return MenuBarRenderer::Ink::of(m_settings.color(m_module), isDark());
}

bool ModuleDetail::isDark() const {
    return schemeOf(this) == Scheme::dark;
}

}  // namespace velmora
