#pragma once

#include "core/SettingsRouter.h"

#include <QMargins>
#include <QRect>
#include <QSize>

#include <optional>

/// The numbers of the settings window: how wide a tab wants it, where it goes when that changes, and what its
/// columns take of it. Everything is in logical pixels. `visible` is the part of the screen that docks and
/// bars leave free; nothing without a screen. `decoration` is what the desktop puts around the content.
namespace velmora::SettingsFrames {

inline constexpr int kHeight = 560;
inline constexpr QSize kMinimumSize{680, 480};
inline constexpr int kLevel1Width = 220;
inline constexpr int kLevel2Width = 198;
/// The window's content is laid out no smaller than this; a smaller window scrolls it.
inline constexpr int kMinimumContentHeight = 240;

/// The width that a tab brings the window to.
int tabWidth(SettingsTab tab);
/// The narrowest width that the tab's content is laid out in.
int minimumContentWidth(SettingsTab tab);

/// The smallest size that the window may be given. It never asks for more than the screen has.
QSize minimumSize(SettingsTab tab, std::optional<QRect> visible, QMargins decoration);

/// The content's rectangle of a window that opens on the tab: in the middle of the screen, and no larger than
/// it.
QRect centredFrame(SettingsTab tab, std::optional<QRect> visible, QMargins decoration);

/// The content's rectangle after a change of tab. A width within a point of the tab's stays. Otherwise the
/// left edge, the top and the height stay, but a window that would pass the screen's right edge moves left,
/// though not past the screen's left edge. No wider than the screen.
QRect frameForTab(SettingsTab tab, const QRect& frame, std::optional<QRect> visible, QMargins decoration);

/// The three columns, over the full height. Without the modules there is no second one.
struct Columns {
    QRect level1;
    QRect level2;  ///< Empty unless the tab is the modules.
    QRect detail;
};
Columns columns(SettingsTab tab, const QSize& content);

}  // namespace velmora::SettingsFrames
