#pragma once

#include "base/Subscription.h"
#include "platform/qt/SwitchingStatusBar.h"

#include <functional>

namespace velmora {

class Defaults;

/// What the user stored of where items are shown and what they are drawn in. It is of this machine's desktop,
/// so it is no part of the settings that travel.
StatusBarPreferences storedBarChoice(const Defaults& defaults);

/// Calls `changed` with the choice whenever another process has stored something, also when the choice is
/// what it was.
[[nodiscard]] Subscription followStoredBarChoice(
    Defaults& defaults, std::function<void(const StatusBarPreferences& preferences)> changed);

}  // namespace velmora
