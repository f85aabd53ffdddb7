#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace velmora {

/// What is used of /proc/N/stat. Times are in clock ticks.
struct ProcPidStat {
    std::string_view comm;  ///< Lies in the parsed text. Any bytes: spaces, parentheses, line ends.
    std::int32_t parent = 0;
    std::uint32_t flags = 0;
    std::uint64_t childFaults = 0;  ///< Page faults of children that were waited for, both kinds.
    std::uint64_t cpuTicks = 0;     ///< In user and system mode.
    std::uint64_t childTicks = 0;   ///< Likewise of children that were waited for.
    std::uint64_t startTicks = 0;   ///< Since boot. With the process id it names one process for good.
    std::uint64_t residentPages = 0;

    bool isKernelThread() const { return (flags & kKernelThread) != 0; }
    static constexpr std::uint32_t kKernelThread = 0x00200000;

    friend bool operator==(const ProcPidStat&, const ProcPidStat&) = default;
};

/// Nothing for any other text. The name ends at the last closing parenthesis, as it may have some of its own.
std::optional<ProcPidStat> parseProcPidStat(std::string_view text);

}  // namespace velmora
