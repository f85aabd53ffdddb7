#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

// The text of /proc/stat (proc(5)). The core lines stand first; then comes "intr", which is thousands of
// characters long, and the boot time near the end.

namespace velmora::ProcStat {

/// The cumulative time of one logical core, in hundredths of a second, folded to the four kinds that the
/// figures know: interrupt and stolen time are the system's, waiting for a disk is idle. Guest time is
/// already in `user` and `nice`. The counters may fall: idle after a suspend or a hotplug, and by a little at
/// any time.
struct CoreTimes {
    int cpu = 0;  ///< The kernel's number; offline cores have no line.
    std::uint64_t user = 0;
    std::uint64_t nice = 0;
    std::uint64_t system = 0;
    std::uint64_t idle = 0;
    friend bool operator==(const CoreTimes&, const CoreTimes&) = default;
};

/// Replaces `cores`, reusing its storage, with one entry per core line in the order of the text. Reads up to
/// the first line that is no CPU's. A malformed or cut line is left out.
void parseCoreTimes(std::string_view text, std::vector<CoreTimes>& cores);

/// The "btime" line, whole seconds since 1970; nothing if it is missing or malformed.
std::optional<std::int64_t> parseBootTime(std::string_view text);

}  // namespace velmora::ProcStat
