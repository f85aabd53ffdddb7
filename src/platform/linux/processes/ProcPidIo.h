#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace velmora {

/// What is used of /proc/N/io: bytes that really went to or came from storage.
struct ProcPidIo {
    std::uint64_t readBytes = 0;
    std::uint64_t writeBytes = 0;
    friend bool operator==(const ProcPidIo&, const ProcPidIo&) = default;
};

/// Nothing if either is missing.
std::optional<ProcPidIo> parseProcPidIo(std::string_view text);

}  // namespace velmora
