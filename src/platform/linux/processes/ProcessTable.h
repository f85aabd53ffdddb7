#pragma once

#include "platform/linux/processes/ProcessFolder.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// All processes as one walk over /proc/N/stat finds them. Storage is reused from walk to walk. One thread at
/// a time.
class ProcessTable {
public:
    struct Row {
        std::int32_t pid = 0;
        std::int32_t parent = 0;
        std::uint32_t owner = 0;
        bool isKernelThread = false;
        std::uint64_t startTicks = 0;
        std::uint64_t cpuTicks = 0;
        std::uint64_t childTicks = 0;
        std::uint64_t childFaults = 0;
        std::uint64_t residentPages = 0;
        std::uint32_t commOffset = 0;
        std::uint32_t commLength = 0;
    };

    explicit ProcessTable(const SystemRoot& root) : m_folder(root) {}

    /// Reads all processes anew. False if there is no list of processes; one that cannot be read is left out.
    bool walk();
    /// Of the last walk, by ascending process id.
    std::span<const Row> rows() const { return m_rows; }
    std::string_view comm(const Row& row) const {
        return std::string_view(m_comms).substr(row.commOffset, row.commLength);
    }
    /// Null if the last walk did not find the process.
    const Row* find(std::int32_t pid) const;

    /// Fills the buffer with the ids of the last walk: processes of `user` first, newest first, then those of
    /// others, kernel threads last. Gives the number of *bytes* of all that were written: callers divide it
    /// by four, and would see but a quarter of the processes, the oldest ones, if it were their number.
    std::int32_t fillInBytes(std::span<std::int32_t> buffer, std::uint32_t user);

    ProcessFolder& folder() { return m_folder; }

    /// The name for a list of programs: that of the executable for a process of this user, else the name that
    /// the kernel keeps, uncut; empty if it is unknown.
    static std::string programName(ProcessFolder& folder, std::int32_t pid, std::string_view comm);
    /// The short command name, uncut.
    static std::string commandName(ProcessFolder& folder, std::int32_t pid, std::string_view comm);

private:
    ProcessFolder m_folder;
    std::vector<std::int32_t> m_pids;
    std::vector<Row> m_rows;
    std::string m_comms;
    std::vector<std::uint32_t> m_order;
};

}  // namespace velmora
