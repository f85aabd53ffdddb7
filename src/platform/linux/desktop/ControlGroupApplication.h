#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// Desktops with systemd start each application in a unit of its own, whose name says which it is:
/// `app-[launcher-]ID-RANDOM.scope`, `app-[launcher-]ID[@INSTANCE].service`, any service in the slice
/// `app-ID.slice`, `snap.NAME.APP…` and `dbus-:1.N-ID@N.service`. A dash within an id is written `\x2d`.
///
/// Gives the ids that the text of a file /proc/N/cgroup may mean, the likeliest first, as not every name can
/// be taken apart for sure; empty for a process in no such unit.
std::vector<std::string> applicationIdsOfControlGroup(std::string_view text);

}  // namespace velmora
