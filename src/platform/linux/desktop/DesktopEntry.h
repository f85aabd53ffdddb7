#pragma once

#include "platform/linux/desktop/DesktopEntryLocales.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// What a desktop entry (a file "….desktop") says about an application, as far as it is of use here.
struct DesktopEntry {
    std::string name;                  ///< In the user's language; valid UTF-8 without control characters.
    std::string icon;                  ///< A name in the icon theme or an absolute path; empty without one.
    std::vector<std::string> command;  ///< Program and arguments; empty if only the bus starts it.
    std::string tryExec;  ///< The program without which it counts as not installed; may be empty.
    std::string folder;   ///< Where it is to be started; empty for no wish.
    std::string windowClass;
    std::vector<std::string> categories;
    std::vector<std::string> onlyShowIn;  ///< Desktops, as `XDG_CURRENT_DESKTOP` names them.
    std::vector<std::string> notShowIn;
    bool isHidden = false;  ///< Deleted by the user; it hides entries of the same id that come later.
    bool isInMenus = true;  ///< Not so for a page of the system's settings, for example.
    bool isBusActivatable = false;
    bool runsInTerminal = false;

    friend bool operator==(const DesktopEntry&, const DesktopEntry&) = default;
};

/// The entry in the text of a file. A malformed line is left out. Nothing for a text that does not begin with
/// the group `Desktop Entry`, is no application, or lacks a name or a usable command. One that is hidden
/// needs none of these.
std::optional<DesktopEntry> parseDesktopEntry(std::string_view text, const DesktopEntryLocales& locales);

}  // namespace velmora
