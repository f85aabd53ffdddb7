#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace velmora {

/// Bytes of a mounted file system.
struct VolumeSpace {
    std::int64_t total = 0;
    /// What is left for this user, without the part that is kept for the administrator. Nothing if the file
    /// system's answer makes no sense.
    std::optional<std::int64_t> available;
    friend bool operator==(const VolumeSpace&, const VolumeSpace&) = default;
};

/// Asks the file system at a mount point (statvfs(3)); nothing on failure. A network server or a program that
/// does not answer holds the caller for as long as it likes.
std::optional<VolumeSpace> volumeSpace(const std::string& mountPoint);

/// The answer in blocks as bytes. Products that no store has are cut to the largest number.
VolumeSpace volumeSpaceOfBlocks(std::uint64_t blocks, std::uint64_t availableBlocks,
                                std::uint64_t blockBytes);

}  // namespace velmora
