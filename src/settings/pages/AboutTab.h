#pragma once

#include "base/Subscription.h"

#include <QWidget>

#include <string>
#include <vector>

namespace velmora {

class AppSettings;
class Bundle;
class L10n;
class LinkButton;
class SettingsRow;
class TextLabel;
class ToggleSwitch;
class Updater;
class VMPillButton;
class Workspace;

/// The page of what the program is, and of updates and reports.
class AboutTab final : public QWidget {
public:
    struct Collaborators {
        AppSettings& settings;
        L10n& l10n;
        const Bundle& bundle;
        Workspace& workspace;
        /// Null in a build that has none: its controls, if shown, do nothing.
        Updater* updater = nullptr;
    };

    explicit AboutTab(const Collaborators& collaborators, QWidget* parent = nullptr);

    /// The version with the build number in parentheses; "0.1.0 (dev)" for a bundle that does not tell both.
    static std::string versionText(const Bundle& bundle);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeIdentityCard();
    QWidget* makeReportsCard();
    QWidget* makeUpdateControls();
    bool hasFeed() const;
    void retext();
    void showSettings();
    void setAutoCheck(bool on);

    Collaborators m_with;
    TextLabel* m_tagline = nullptr;
    TextLabel* m_version = nullptr;
    LinkButton* m_link = nullptr;
    TextLabel* m_copyright = nullptr;
    SettingsRow* m_updateRow = nullptr;  ///< Null in a build without a feed, as are the two below.
    VMPillButton* m_checkNow = nullptr;
    ToggleSwitch* m_autoCheck = nullptr;
    SettingsRow* m_crashRow = nullptr;
    ToggleSwitch* m_crash = nullptr;
    SettingsRow* m_improveRow = nullptr;
    ToggleSwitch* m_improve = nullptr;
    std::vector<Subscription> m_subscriptions;
};

}  // namespace velmora
