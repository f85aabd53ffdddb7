#pragma once

#include "platform/StatusBar.h"
#include "platform/qt/session/Session.h"

#include <QPointer>

#include <functional>
#include <string>
#include <vector>

class QMenu;

namespace velmora {

/// The menu of an item, as a menu of our own. It exists only while it is open.
class StatusItemMenu {
public:
    explicit StatusItemMenu(Session::WindowSystem windows) : m_windows(windows) {}
    StatusItemMenu(const StatusItemMenu&) = delete;
    StatusItemMenu& operator=(const StatusItemMenu&) = delete;
    ~StatusItemMenu();

    /// Opens the menu beside the anchor. A menu that is open closes instead: a second click on the item.
    void toggle(const std::vector<StatusMenuEntry>& entries, const Anchor& anchor,
                const std::function<void(const std::string& action)>& chosen);

    /// Null while no menu is open.
    QMenu* menu() const;

private:
    Session::WindowSystem m_windows;
    QPointer<QMenu> m_menu;
};

}  // namespace velmora
