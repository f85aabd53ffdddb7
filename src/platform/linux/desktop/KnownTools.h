#pragma once

#include "platform/ShortcutTargets.h"

#include <span>
#include <string_view>

// Nothing in a desktop's data says which of its applications is the one to look at disks with, and no list of
// preferred applications has these kinds. So they are known by the ids of their entries.

namespace velmora {

struct KnownTool {
    std::string_view id;
    /// The desktop that it belongs to, as `XDG_CURRENT_DESKTOP` names it; empty if to none.
    std::string_view desktop = {};
    /// For a page of the settings: the ids of the application that has the page, of which there may be two by
    /// its age.
    std::string_view application = {};
    std::string_view formerApplication = {};
};

/// What does for this kind, best first; on a desktop that has one of its own, that one comes before the
/// others.
std::span<const KnownTool> knownTools(ShortcutKind kind);

/// Categories of which an entry of any other id needs all; empty where only the known ones do.
std::span<const std::string_view> categoriesOf(ShortcutKind kind);

/// True for what is a page of the system's settings. It is of use on its own desktop only.
bool isSettingsPane(ShortcutKind kind);

}  // namespace velmora
