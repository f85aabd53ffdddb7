#pragma once

#include "base/Subscription.h"

#include <QWidget>

#include <string>
#include <vector>

namespace velmora {

class AppSettings;
class FooterNote;
class L10n;
class SettingsRow;
class ToggleSwitch;
class VMDropdown;

/// The page of language and start at login: shows the settings as they are, and writes each change at once.
class GeneralTab final : public QWidget {
public:
    GeneralTab(AppSettings& settings, L10n& l10n, QWidget* parent = nullptr);

private:
    void retext();
    void showSettings();
    void pickLanguage(const std::string& value);

    AppSettings& m_settings;
    L10n& m_l10n;
    VMDropdown* m_language;
    ToggleSwitch* m_launch;
    SettingsRow* m_languageRow;
    SettingsRow* m_launchRow;
    FooterNote* m_footer;
    std::vector<Subscription> m_subscriptions;
};

}  // namespace velmora
