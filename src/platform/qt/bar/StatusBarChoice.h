#pragma once

#include "platform/qt/session/Session.h"
#include "platform/qt/tray/HostProfile.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace velmora {

/// The user's choice of where items are shown, stored as "auto", "tray" or "strip".
enum class BackendPreference : std::uint8_t { automatic, tray, strip };
/// Anything but the three texts is `automatic`.
BackendPreference backendPreferenceNamed(std::string_view name);

/// The user's choice of what items are drawn in, stored as "auto", "light" or "dark". Light ink is for a dark
/// bar.
enum class InkPreference : std::uint8_t { automatic, light, dark };
/// Anything but the three texts is `automatic`.
InkPreference inkPreferenceNamed(std::string_view name);

/// Where items are shown.
enum class StatusBarPlace : std::uint8_t {
    nowhere,
    tray,    ///< As items of a tray host, in squares unless the host keeps their width.
    dock,    ///< In a strip of our own at the top of the work area, which shrinks for it.
    topBar,  ///< In a strip of our own that lies in the desktop's top bar.
};

/// A host that shows images as they are comes first, then the strip, then a host with squares. A preference
/// that cannot be met by the strip falls back to a host; one for the tray waits for a host.
StatusBarPlace chooseStatusBar(const Session& session, const std::optional<HostProfile>& host,
                               BackendPreference preference);

}  // namespace velmora
