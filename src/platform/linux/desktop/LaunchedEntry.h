#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// What a process carries along that tells which application it is.

namespace velmora {

/// The path of the desktop entry that a process was launched by, from its environment (the text of
/// /proc/N/environ). Launchers of the GLib library leave it there together with the process id, without which
/// it means nothing: children inherit both. Nothing if it was launched otherwise.
std::optional<std::string> launchedEntry(std::string_view environment, std::int32_t pid);

/// The application that a Flatpak sandbox is for, from the text of its file `/.flatpak-info`.
std::optional<std::string> applicationOfFlatpakInfo(std::string_view text);

}  // namespace velmora
