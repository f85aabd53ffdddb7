#include "settings/window/SettingsWindowController.h"

#include "platform/RunLoop.h"
#include "settings/window/OverlayScrollers.h"
#include "settings/window/SettingsWindow.h"

namespace velmora {

SettingsWindowController::SettingsWindowController(SettingsCollaborators collaborators)
    : m_with(std::move(collaborators)) {}

SettingsWindowController::~SettingsWindowController() {
    dropWindow();
}

void SettingsWindowController::show(std::optional<SettingsTab> tab) {
    if (tab && m_with.hasPage(*tab)) m_with.router.selectedTab.set(*tab);
    if (!m_window) makeWindow();
    m_window->bringToFront();
    m_with.runLoop.post(m_life.wrap([this] {
        if (m_window) forceOverlayScrollers(*m_window);
    }));
}

SettingsWindow* SettingsWindowController::window() const {
    return m_window;
}

void SettingsWindowController::makeWindow() {
    m_window = new SettingsWindow(m_with, [this] { windowWillClose(); });
    m_window->centre(m_with.router.selectedTab.get());
    m_lastTab = m_with.router.selectedTab.get();
    m_tabObserver =
        m_with.router.selectedTab.subscribe([this](SettingsTab selected) { tabChanged(selected); });
}

/// The new width comes after the change of the content, of which this call may be a part.
void SettingsWindowController::tabChanged(SettingsTab tab) {
    if (m_lastTab == tab) return;
    m_lastTab = tab;
    m_with.runLoop.post(m_life.wrap([this, tab] {
        if (m_window) m_window->widenFor(tab);
    }));
}

void SettingsWindowController::windowWillClose() {
    m_tabObserver.reset();
    // It is in the middle of its closing.
    if (m_window) m_window->deleteLater();
    m_window = nullptr;
}

void SettingsWindowController::dropWindow() {
    m_tabObserver.reset();
    delete m_window;
}

}  // namespace velmora
