#include "platform/qt/window/StatusItemMenu.h"

#include "platform/qt/window/OutsideClickShield.h"
#include "platform/qt/window/PopupGrab.h"
#include "platform/qt/window/ScreenPlace.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeySequence>
#include <QMenu>

#include <memory>

namespace velmora {
namespace {

QPoint positionFor(const Anchor& anchor, QSize size) {
    const ScreenPlace on = ScreenPlace::under(anchor);
    const DesktopRect place = placePanel(anchor, {size.width(), size.height()}, on.screen, on.available);
    return {place.x, place.y};
}

}  // namespace

StatusItemMenu::~StatusItemMenu() {
    delete m_menu.data();
}

QMenu* StatusItemMenu::menu() const {
    return m_menu.data();
}

void StatusItemMenu::toggle(const std::vector<StatusMenuEntry>& entries, const Anchor& anchor,
                            const std::function<void(const std::string& action)>& chosen) {
    if (m_menu && m_menu->isVisible()) {
        m_menu->close();
        return;
    }
    if (entries.empty()) return;

    auto* const menu = new QMenu;
    m_menu = menu;
    menu->setAttribute(Qt::WA_DeleteOnClose);
    // A click on the item that opened the menu closes it; it must not reach the item and open it again.
    menu->setAttribute(Qt::WA_NoMouseReplay);
    for (const StatusMenuEntry& entry : entries) {
        if (entry.title.empty()) {
            menu->addSeparator();
            continue;
        }
        QString title = QString::fromStdString(entry.title);
        QAction* const action = menu->addAction(title.replace(QLatin1Char('&'), QLatin1String("&&")));
        if (!entry.key.empty()) {
            action->setShortcut(
                QKeySequence(QLatin1String("Ctrl+") + QString::fromStdString(entry.key).toUpper()));
            action->setShortcutVisibleInContextMenu(true);
        }
        // Queued, so that the menu is closed by the time that the action opens a window or quits.
        QObject::connect(
            action, &QAction::triggered, qApp, [chosen, name = entry.action] { chosen(name); },
            Qt::QueuedConnection);
    }

    if (m_windows == Session::WindowSystem::xwayland) {
        auto shield = std::make_shared<OutsideClickShield>(QRegion(), [closing = QPointer(menu)](QPoint) {
            if (closing) closing->close();
        });
        shield->show();
        QObject::connect(menu, &QMenu::aboutToHide, menu, [shield] { shield->hide(); });
    }
    menu->popup(positionFor(anchor, menu->sizeHint()));
    if (m_windows == Session::WindowSystem::x11) PopupGrab::keepAsking(*menu);
}

}  // namespace velmora
