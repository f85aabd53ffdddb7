#pragma once

class QWidget;

namespace velmora {

/// Some tray hosts report a click while the button is still down. The pointer is then the host's, and a popup
/// that opens cannot grab it: clicks elsewhere would not close it. The toolkit does not notice the refusal,
/// so the popup asks again for a second and a half, by when the button is up.
namespace PopupGrab {

/// To be called after the popup is shown. Ends with the popup.
void keepAsking(QWidget& popup);

}  // namespace PopupGrab
}  // namespace velmora
