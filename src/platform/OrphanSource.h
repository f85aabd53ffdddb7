#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace velmora {

struct ProcessParentage {
    std::int32_t parent = 0;  ///< `pbi_ppid`; 1 for a process whose own parent has gone.
    std::uint32_t user = 0;   ///< `pbi_uid`
    friend bool operator==(const ProcessParentage&, const ProcessParentage&) = default;
};

/// What it takes to find processes of ours that were left behind, and to end them. One thread at a time.
class OrphanSource {
public:
    virtual ~OrphanSource() = default;

    /// Stands for `proc_listallpids` with a buffer of 8192 entries. The answer is taken for a number of
    /// bytes. Below 1 on failure.
    virtual std::int32_t listAll(std::span<std::int32_t> buffer) = 0;
    /// Stands for `proc_name`; empty if unknown.
    virtual std::string name(std::int32_t pid) = 0;
    /// Stands for `proc_pidinfo` with `PROC_PIDTBSDINFO`; nothing if the record is not whole.
    virtual std::optional<ProcessParentage> parentage(std::int32_t pid) = 0;
    /// Stands for `getuid`.
    virtual std::uint32_t userId() const = 0;
    /// Stands for `kill` with `SIGTERM`. Ends the process that the last `parentage` was asked of, and none
    /// that took its number since.
    virtual void terminate(std::int32_t pid) = 0;
};

}  // namespace velmora
