#pragma once

#include <optional>
#include <string>
#include <string_view>

// On X11 a desktop publishes the settings that all toolkits share (XSETTINGS): in a property of a window
// whose owner holds a selection of the screen. The names and types are few; those of texts are of use here.

namespace velmora {

/// The text of a setting among those in the bytes of the property `_XSETTINGS_SETTINGS`. Nothing if there is
/// no text of that name before the first malformed byte.
std::optional<std::string> xSettingText(std::string_view bytes, std::string_view name);

/// The same of the display that this program runs on. Asks the server and waits for its answers, so not at a
/// steady rate. Nothing where the program does not run on X11, or nobody publishes settings.
std::optional<std::string> currentXSettingText(std::string_view name);

}  // namespace velmora
