#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace velmora {

/// The lines of /proc/vmstat that the memory figures use; absent where missing or malformed.
struct VmStat {
    std::optional<std::uint64_t> zspages;   ///< Pages that hold compressed data.
    std::optional<std::uint64_t> pagesIn;   ///< KiB read from disks since boot, in spite of the name.
    std::optional<std::uint64_t> pagesOut;  ///< KiB written.
    friend bool operator==(const VmStat&, const VmStat&) = default;

    bool hasPageCounts() const { return pagesIn && pagesOut; }
};

/// `usedLength`, if given, becomes the length of the text up to the last line of use: the kernel writes this
/// file line by line as far as it is read, so the rest need not be asked for again.
VmStat parseVmStat(std::string_view text, std::size_t* usedLength = nullptr);

}  // namespace velmora
