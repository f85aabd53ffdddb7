#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace velmora {

/// The lines of /proc/meminfo that the memory figures use, in KiB as they stand there. A line that the kernel
/// does not write, or that is malformed, is absent.
struct MemInfo {
    std::optional<std::uint64_t> memTotal;
    std::optional<std::uint64_t> memFree;
    std::optional<std::uint64_t> memAvailable;
    std::optional<std::uint64_t> buffers;
    std::optional<std::uint64_t> cached;
    std::optional<std::uint64_t> swapTotal;
    std::optional<std::uint64_t> swapFree;
    std::optional<std::uint64_t> zswap;
    std::optional<std::uint64_t> anonPages;
    std::optional<std::uint64_t> shmem;
    std::optional<std::uint64_t> sReclaimable;
    friend bool operator==(const MemInfo&, const MemInfo&) = default;
};

MemInfo parseMemInfo(std::string_view text);

}  // namespace velmora
