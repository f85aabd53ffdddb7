#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// What is used of /proc/N/status.
struct ProcPidStatus {
    std::string name;
    std::uint32_t user = 0;                       ///< The effective one.
    std::optional<std::uint64_t> anonymousBytes;  ///< Nothing for kernel threads.
    std::optional<std::uint64_t> swappedBytes;
};

/// Overwrites `status`, reusing its storage. False without a name and a user.
bool parseProcPidStatus(std::string_view text, ProcPidStatus& status);

}  // namespace velmora
