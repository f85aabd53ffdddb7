#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmora {

/// What a block-storage driver has moved since it was attached (stands for the "Statistics" of the registry's
/// "IOBlockStorageDriver" entries).
struct BlockDriverCounters {
    std::uint64_t readBytes = 0;
    std::uint64_t writeBytes = 0;
    std::uint64_t readOperations = 0;
    std::uint64_t writeOperations = 0;
    friend bool operator==(const BlockDriverCounters&, const BlockDriverCounters&) = default;
};

/// What one named device has moved.
struct MediaCounters {
    std::string bsdName;  ///< Empty if the entry has no name.
    std::uint64_t readBytes = 0;
    std::uint64_t writeBytes = 0;
    friend bool operator==(const MediaCounters&, const MediaCounters&) = default;
};

/// The two classes of registry entries whose figures have a device name.
enum class MediaClass {
    apfsVolume,  ///< "AppleAPFSVolume": a volume's own figures.
    media,       ///< "IOMedia": a whole disk, or a slice of one.
};

/// Stands for `IOServiceGetMatchingServices` and `IORegistryEntryCreateCFProperties` over storage. Each is
/// one bounded read on the main thread.
class BlockDeviceSource {
public:
    virtual ~BlockDeviceSource() = default;
    /// Replaces `drivers`, reusing its storage, with one entry per driver that has statistics. False if the
    /// drivers cannot be listed; `drivers` is then unspecified.
    virtual bool drivers(std::vector<BlockDriverCounters>& drivers) = 0;
    /// Replaces `media`, reusing its storage, with one entry per device of the class that has statistics; the
    /// same name may come twice. May answer from the read of the `drivers` call before it. False if the class
    /// cannot be listed; `media` is then unspecified.
    virtual bool media(MediaClass mediaClass, std::vector<MediaCounters>& media) = 0;
};

}  // namespace velmora
