#include "settings/window/SettingsFrames.h"

#include <algorithm>
#include <cstdlib>

namespace velmora::SettingsFrames {
namespace {

constexpr int kModulesWidth = 940;
constexpr int kOtherWidth = 720;
constexpr int kModulesMinimumWidth = 880;
/// Widths that differ by so little count as equal.
constexpr int kTolerance = 1;

/// The room for the content where the desktop puts its decoration around it.
std::optional<QRect> roomFor(std::optional<QRect> visible, QMargins decoration) {
    if (!visible || visible->isEmpty()) return std::nullopt;
    return visible->marginsRemoved(decoration);
}

QSize boundedTo(QSize size, std::optional<QRect> room) {
    return room ? size.boundedTo(room->size()).expandedTo(QSize(1, 1)) : size;
}

}  // namespace

int tabWidth(SettingsTab tab) {
    return tab == SettingsTab::modules ? kModulesWidth : kOtherWidth;
}

int minimumContentWidth(SettingsTab tab) {
    return tab == SettingsTab::modules ? kModulesMinimumWidth : kMinimumSize.width();
}

QSize minimumSize(SettingsTab tab, std::optional<QRect> visible, QMargins decoration) {
    const QSize wanted(minimumContentWidth(tab), kMinimumSize.height());
    return boundedTo(wanted, roomFor(visible, decoration));
}

QRect centredFrame(SettingsTab tab, std::optional<QRect> visible, QMargins decoration) {
    const auto room = roomFor(visible, decoration);
    QRect frame(QPoint(0, 0), boundedTo(QSize(tabWidth(tab), kHeight), room));
    if (room) frame.moveCenter(room->center());
    return frame;
}

QRect frameForTab(SettingsTab tab, const QRect& frame, std::optional<QRect> visible, QMargins decoration) {
    const auto room = roomFor(visible, decoration);
    const int width = boundedTo(QSize(tabWidth(tab), frame.height()), room).width();
    if (std::abs(frame.width() - width) <= kTolerance) return frame;
    QRect moved = frame;
    moved.setWidth(width);
    if (room && moved.right() > room->right()) {
        moved.moveLeft(std::max(room->left(), room->right() - width + 1));
    }
    return moved;
}

Columns columns(SettingsTab tab, const QSize& content) {
    const int level2Width = tab == SettingsTab::modules ? kLevel2Width : 0;
    const int sidebars = kLevel1Width + level2Width;
    return {QRect(0, 0, kLevel1Width, content.height()),
            QRect(kLevel1Width, 0, level2Width, content.height()),
            QRect(sidebars, 0, std::max(0, content.width() - sidebars), content.height())};
}

}  // namespace velmora::SettingsFrames
