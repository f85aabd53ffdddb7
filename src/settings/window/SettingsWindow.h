#pragma once

#include "base/Subscription.h"
#include "settings/window/SettingsCollaborators.h"

#include <QMargins>
#include <QMetaObject>
#include <QRect>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class QScrollArea;

namespace velmora {

class SettingsView;

/// The window of the settings, with the desktop's own title bar. On a screen that is smaller than its content
/// it is as large as the screen and scrolls.
class SettingsWindow final : public QWidget {
public:
    /// `closed` is called when the user closes it; the window then waits to be deleted.
    SettingsWindow(const SettingsCollaborators& collaborators, std::function<void()> closed);

    SettingsView& view() const { return *m_view; }

    /// Takes the tab's opening size, in the middle of the screen.
    void centre(SettingsTab tab);
    /// Takes the tab's width.
    void widenFor(SettingsTab tab);
    /// Shows it above other windows, with the keyboard; also when it was minimised.
    void bringToFront();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    std::optional<QRect> visibleFrame() const;
    QMargins decoration() const;
    void limitToScreen();
    void followScreen();
    void showBlur();

    const SettingsCollaborators& m_with;
    std::function<void()> m_closed;
    QScrollArea* m_scroll;
    SettingsView* m_view;
    QMetaObject::Connection m_screenChange;
    QMetaObject::Connection m_roomChange;
    std::vector<Subscription> m_subscriptions;
};

}  // namespace velmora
