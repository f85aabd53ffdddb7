#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

// The text of /proc/diskstats (Documentation/admin-guide/iostats.rst): a line for each disk and each
// partition, whatever it is made of.

namespace velmora::ProcDiskStats {

/// The sectors of this file are 512 bytes long on every disk.
inline constexpr std::uint64_t kSectorBytes = 512;

/// No line is longer: a name of 32 letters and twenty numbers of at most twenty digits.
inline constexpr std::size_t kLongestLine = 512;

/// The used columns of a line. Discards and flushes, which stand behind them, are no reads and no writes.
struct Line {
    std::string_view name;  ///< Lies in the text.
    std::uint64_t reads = 0;
    std::uint64_t sectorsRead = 0;
    std::uint64_t writes = 0;
    std::uint64_t sectorsWritten = 0;
    friend bool operator==(const Line&, const Line&) = default;
};

/// Takes the next good line off the front of the text, leaving out malformed ones; nothing at the end. A last
/// line without its newline may have lost digits, and is left out too.
std::optional<Line> takeLine(std::string_view& text);

}  // namespace velmora::ProcDiskStats
