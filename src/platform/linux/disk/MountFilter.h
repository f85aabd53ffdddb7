#pragma once

#include "platform/linux/disk/MountHints.h"
#include "platform/linux/disk/MountInfo.h"

#include <string>
#include <string_view>
#include <vector>

// Which of the many mounts of a system a user would call volumes. Nothing here touches the mounts: a look at
// a dead server's folder would not come back.

namespace velmora::MountFilter {

/// The mounts to list, in the order of mounting: each file system once, under the mount point that a user
/// would name.
std::vector<MountEntry> listedMounts(const std::vector<MountEntry>& entries, const MountHintTable& hints);

/// Mount points of what lies on another machine or is provided by a program, and automatic ones, the root
/// excepted. A look at anything there, and at anything below, may never come back.
std::vector<std::string> slowMountPoints(const std::vector<MountEntry>& entries, const MountHintTable& hints);

/// True for a file system whose files lie on another machine.
bool isNetworkType(std::string_view type);
/// True for a file system that a program provides.
bool isUserSpaceType(std::string_view type);
/// True for a path that is the folder or lies below it.
bool isAtOrBelow(std::string_view path, std::string_view folder);

}  // namespace velmora::MountFilter
