#pragma once

#include <map>
#include <string>
#include <string_view>

// Options that the kernel does not know and mountinfo does not show: they stand in /etc/fstab (fstab(5)) and,
// as given at mounting, in /run/mount/utab.

namespace velmora {

/// What a mount's options tell the programs that list mounts.
struct MountHints {
    bool hides = false;         ///< "x-gvfs-hide"
    bool shows = false;         ///< "x-gvfs-show"
    bool needsNetwork = false;  ///< "_netdev"
    friend bool operator==(const MountHints&, const MountHints&) = default;
};

/// By mount point; a mount without a hint has no entry.
using MountHintTable = std::map<std::string, MountHints, std::less<>>;

/// Adds the hints of a text of /etc/fstab. A malformed line is left out.
void addFstabHints(std::string_view text, MountHintTable& table);
/// Adds the hints of a text of /run/mount/utab: a line for each mount, of words such as TARGET=/mnt.
void addUtabHints(std::string_view text, MountHintTable& table);

}  // namespace velmora
