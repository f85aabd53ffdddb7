#pragma once

#include "base/LifeGuard.h"
#include "base/Subscription.h"
#include "settings/window/SettingsCollaborators.h"

#include <QPointer>

#include <optional>

namespace velmora {

class SettingsWindow;

/// Shows the settings window, of which there is one: made when it is first asked for, gone when it closes.
/// What was selected in it stays with the router. Main thread only.
class SettingsWindowController {
public:
    explicit SettingsWindowController(SettingsCollaborators collaborators);
    SettingsWindowController(const SettingsWindowController&) = delete;
    SettingsWindowController& operator=(const SettingsWindowController&) = delete;
    ~SettingsWindowController();
    static SettingsWindowController& shared();

    /// Brings the window to the front, on the given tab or on the one that is selected. A tab that has no
    /// page leaves the selected one.
    void show(std::optional<SettingsTab> tab);

    /// Null while it is shut.
    SettingsWindow* window() const;
    /// Takes the window away at once; for the program's end.
    void dropWindow();

private:
    void makeWindow();
    void windowWillClose();
    void tabChanged(SettingsTab tab);

    SettingsCollaborators m_with;
    QPointer<SettingsWindow> m_window;
    Subscription m_tabObserver;
    std::optional<SettingsTab> m_lastTab;
    LifeGuard m_life;
};

}  // namespace velmora
