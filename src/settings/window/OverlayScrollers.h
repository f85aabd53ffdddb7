#pragma once

class QWidget;

namespace velmora {

/// Gives every scroll area within the widget, and the widget itself if it is one, scrollers that float over
/// the content without a track, whatever the desktop's style has. Those that are so already stay. All take
/// the scheme that the widget has now.
void forceOverlayScrollers(QWidget& root);

}  // namespace velmora
