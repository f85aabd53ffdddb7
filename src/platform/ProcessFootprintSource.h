#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace velmora {

/// How much memory each process has. Called from one thread at a time.
class ProcessFootprintSource {
public:
    virtual ~ProcessFootprintSource() = default;

    /// Stands for `proc_listallpids`: without a buffer, the number of processes; with one, fills it and gives
    /// the number of entries written. Below 1 on failure.
    virtual std::int32_t listAll(std::span<std::int32_t> buffer) = 0;
    /// `ri_phys_footprint` of `proc_pid_rusage`, bytes; nothing if the process cannot be read.
    virtual std::optional<std::uint64_t> footprint(std::int32_t pid) = 0;
    /// Stands for `proc_name`: valid UTF-8 without control characters, at most 255 bytes; empty if unknown.
    virtual std::string name(std::int32_t pid) = 0;
};

}  // namespace velmora
