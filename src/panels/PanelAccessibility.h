#pragma once

namespace velmora {

/// Shows open panels to screen readers. The toolkit leaves popups out of what an application shows, since its
/// own popups are the menus and lists of something else; a panel belongs to nothing. To be called once,
/// before the event loop runs.
void installPanelAccessibility();

}  // namespace velmora
