#pragma once

#include <cstdint>
#include <set>
#include <stop_token>
#include <string>

namespace velmora {

/// Bytes allocated to the files below a folder.
///
/// A file with several names counts once, links count as themselves and are not followed, and the walk stays
/// on the folder's own file system. Folders whose names end in ".app" are application packages and not
/// descended into. What cannot be read counts 0, as does what lies below 200 levels of folders. Ends early
/// once a stop is requested.
///
/// `leftOut` are whole paths below the folder that are not even looked at.
std::int64_t treeSize(const std::string& folder, const std::set<std::string>& leftOut,
                      const std::stop_token& stop);

}  // namespace velmora
