#pragma once

#include "platform/linux/disk/DeviceNumber.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The text of /proc/self/mountinfo (proc(5)): a line for each mount that this process can reach, in the order
// of mounting.

namespace velmora {

struct MountEntry {
    DeviceNumber device;     ///< Of the file system; the major number is 0 for one without a single device.
    std::string root;        ///< What of the file system is mounted: "/", or a folder in it.
    std::string mountPoint;  ///< Bytes as they are, which need not be UTF-8.
    std::string type;
    std::string source;  ///< A device, a server's folder, or any word.
    bool isReadOnly = false;
    bool needsNetwork = false;       ///< Set from the hints; mountinfo does not tell.
    bool isBehindSlowMount = false;  ///< Set from the other mounts: the way to it leads over a slow one.
    friend bool operator==(const MountEntry&, const MountEntry&) = default;
};

/// Turns the three octal digits behind a backslash into the byte that they stand for.
std::string unescapeMountText(std::string_view text);

/// True if a list of options, separated by commas, has the option.
bool hasMountOption(std::string_view options, std::string_view option);

/// The mounts of the text. A malformed or cut line is left out.
std::vector<MountEntry> parseMountInfo(std::string_view text);

}  // namespace velmora
