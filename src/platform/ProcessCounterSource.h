#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace velmora {

/// What a process has used up since its start.
struct ProcessCounters {
    std::uint64_t diskRead = 0;      ///< `ri_diskio_bytesread`
    std::uint64_t diskWritten = 0;   ///< `ri_diskio_byteswritten`
    std::uint64_t billedEnergy = 0;  ///< `ri_billed_energy`, nanojoules; 0 where energy is not known.
    friend bool operator==(const ProcessCounters&, const ProcessCounters&) = default;
};

/// The counters of each process (stands for `proc_pid_rusage` with `RUSAGE_INFO_V6`). Called on the work
/// queue, but for `ownEnergy`.
class ProcessCounterSource {
public:
    virtual ~ProcessCounterSource() = default;

    /// Stands for `proc_listallpids` with a buffer of 8192 entries. The answer is taken for a number of
    /// bytes. Below 1 on failure.
    virtual std::int32_t listAll(std::span<std::int32_t> buffer) = 0;
    /// Nothing if the process cannot be read. Answers for the time of the last `listAll` or later.
    virtual std::optional<ProcessCounters> counters(std::int32_t pid) = 0;
    /// Stands for `proc_name`: valid UTF-8 without control characters, at most 255 bytes; empty if unknown.
    virtual std::string name(std::int32_t pid) = 0;
    /// `ri_billed_energy` of this process; nothing if it cannot be read. Callable from any thread.
    virtual std::optional<std::uint64_t> ownEnergy() = 0;
};

}  // namespace velmora
