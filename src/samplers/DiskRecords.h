#pragma once

#include "platform/BlockDeviceSource.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string_view>

// The registry dictionaries in which the program's first home hands out the counters of its disks.

namespace velmora::DiskRecords {

/// The class whose entries `decodeBlockDriver` reads.
inline constexpr std::string_view kBlockDriverClass = "IOBlockStorageDriver";

/// Where the entries of a class of media have their counters.
struct MediaKeys {
    std::string_view className;
    std::string_view readKey;
    std::string_view writeKey;
};
MediaKeys mediaKeys(MediaClass mediaClass);

/// A driver's properties. Nothing without a "Statistics" dictionary; a counter in it that is absent or no
/// unsigned number is 0.
std::optional<BlockDriverCounters> decodeBlockDriver(const nlohmann::json& properties);

/// The properties of an entry of a class of media. Nothing without a "BSD Name" text or a "Statistics"
/// dictionary; a counter that is absent or no unsigned number is 0.
std::optional<MediaCounters> decodeMedia(const nlohmann::json& properties, const MediaKeys& keys);

}  // namespace velmora::DiskRecords
