#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// What a mounted volume says of itself (stands for `URL.resourceValues` over the keys named below). Nothing
/// for what the system does not know.
struct VolumeValues {
    std::optional<std::string> name;                ///< `NSURLVolumeNameKey`
    std::optional<std::int64_t> totalCapacity;      ///< `NSURLVolumeTotalCapacityKey`, bytes.
    std::optional<std::int64_t> availableCapacity;  ///< `…AvailableCapacityForImportantUsageKey`, bytes.
    std::optional<bool> isInternal;                 ///< `NSURLVolumeIsInternalKey`
    std::optional<bool> isBrowsable;                ///< `NSURLVolumeIsBrowsableKey`
    std::optional<bool> isLocal;                    ///< `NSURLVolumeIsLocalKey`
    std::optional<bool> isRemovable;                ///< `NSURLVolumeIsRemovableKey`
    std::optional<bool> isEjectable;                ///< `NSURLVolumeIsEjectableKey`
    friend bool operator==(const VolumeValues&, const VolumeValues&) = default;
};

/// The mounted volumes. Called on the main thread; an adapter asks nothing there that may block.
class VolumeSource {
public:
    virtual ~VolumeSource() = default;
    /// Mount points of the volumes that are not hidden (stands for `mountedVolumeURLs` with the option to
    /// skip hidden volumes); empty on failure. The two operations below answer for the time of this call.
    virtual std::vector<std::string> mountedVolumes() = 0;
    /// Nothing if the volume cannot be read.
    virtual std::optional<VolumeValues> values(const std::string& path) = 0;
    /// What the volume that holds the path is mounted from (`f_mntfromname` of `statfs`): a device below
    /// "/dev/", or something else. Nothing on failure.
    virtual std::optional<std::string> mountSource(const std::string& path) = 0;
};

}  // namespace velmora
