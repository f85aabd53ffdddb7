#include "settings/pages/GeneralTab.h"

#include "core/AppSettings.h"
#include "l10n/AppLanguage.h"
#include "l10n/L10n.h"
#include "settings/blocks/FooterNote.h"
#include "settings/blocks/RowDivider.h"
#include "settings/blocks/SettingsCard.h"
#include "settings/blocks/SettingsRow.h"
#include "settings/controls/ToggleSwitch.h"
#include "settings/controls/VMDropdown.h"

#include <QVBoxLayout>

#include <optional>

namespace velmora {
namespace {

constexpr int kSpacing = 16;
constexpr int kLabelMinWidth = 180;
constexpr QSize kPickerSize(200, 28);
/// In the picker, following the system is a value like the others.
constexpr std::string_view kFollowSystem;

std::vector<VMDropdown::Option> languageOptions(const L10n& l10n) {
    std::vector<VMDropdown::Option> options{
        {std::string(kFollowSystem), std::string(l10n.string("common.systemDefault"))}};
    for (const AppLanguage language : kAllLanguages) {
        options.push_back({std::string(rawValue(language)), std::string(displayName(language))});
    }
    return options;
}

}  // namespace

GeneralTab::GeneralTab(AppSettings& settings, L10n& l10n, QWidget* parent)
    : QWidget(parent),
      m_settings(settings),
      m_l10n(l10n),
      m_language(new VMDropdown),
      m_launch(new ToggleSwitch),
      m_languageRow(new SettingsRow(QFont::Normal, kLabelMinWidth, m_language)),
      m_launchRow(new SettingsRow(QFont::Normal, kLabelMinWidth, m_launch)),
      m_footer(new FooterNote) {
    m_language->setFixedSize(kPickerSize);
    m_language->onPick([this](const std::string& value) { pickLanguage(value); });
    m_launch->onToggle([this](bool on) { m_settings.setLaunchAtLogin(on); });

    auto* const card = new SettingsCard;
    card->add(m_languageRow);
    card->add(new RowDivider);
    card->add(m_launchRow);
    auto* const stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(kSpacing);
    stack->addWidget(card);
    stack->addWidget(m_footer);

    m_subscriptions.push_back(m_l10n.language().subscribe([this](AppLanguage) { retext(); }));
    m_subscriptions.push_back(m_settings.languageCode().subscribe([this](const auto&) { showSettings(); }));
    m_subscriptions.push_back(m_settings.launchAtLogin().subscribe([this](bool) { showSettings(); }));
}

void GeneralTab::retext() {
    m_languageRow->setTexts(m_l10n.string("gen.language"));
    m_launchRow->setTexts(m_l10n.string("gen.launchLogin"));
    m_footer->setText(m_l10n.string("gen.footer"));
    m_language->setOptions(languageOptions(m_l10n));
}

void GeneralTab::showSettings() {
    m_language->setSelection(m_settings.languageCode().get().value_or(std::string(kFollowSystem)));
    m_launch->setOn(m_settings.launchAtLogin().get());
}

void GeneralTab::pickLanguage(const std::string& value) {
    const auto code = value == kFollowSystem ? std::nullopt : std::make_optional(value);
    m_settings.setLanguageCode(code);
    m_l10n.apply(code);
}

}  // namespace velmora
