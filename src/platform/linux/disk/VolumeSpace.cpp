#include "platform/linux/disk/VolumeSpace.h"

#include <sys/statvfs.h>

#include <cerrno>
#include <limits>

namespace velmora {
namespace {

std::int64_t bytesOf(std::uint64_t blocks, std::uint64_t blockBytes) {
    constexpr auto kLargest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (blockBytes != 0 && blocks > kLargest / blockBytes) return std::numeric_limits<std::int64_t>::max();
    return static_cast<std::int64_t>(blocks * blockBytes);
}

}  // namespace

std::optional<VolumeSpace> volumeSpace(const std::string& mountPoint) {
    struct statvfs status {};
    int result = 0;
    do {
        result = ::statvfs(mountPoint.c_str(), &status);
    } while (result != 0 && errno == EINTR);
    if (result != 0) return std::nullopt;
    return volumeSpaceOfBlocks(status.f_blocks, status.f_bavail, status.f_frsize);
}

VolumeSpace volumeSpaceOfBlocks(std::uint64_t blocks, std::uint64_t availableBlocks,
                                std::uint64_t blockBytes) {
    VolumeSpace space{.total = bytesOf(blocks, blockBytes), .available = std::nullopt};
    // A store filled beyond what is kept back may answer with a negative number.
    if (availableBlocks <= blocks) space.available = bytesOf(availableBlocks, blockBytes);
    return space;
}

}  // namespace velmora
