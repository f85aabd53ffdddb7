#pragma once

#include "platform/linux/files/SystemRoot.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// Which process a tool was launched by, as its environment tells it: process id and start time, which
/// together name one process for good. The parent that the kernel names is no help: an orphan is adopted by
/// the nearest ancestor that asked for such, and on a desktop that is rarely process 1.
struct ParentMark {
    std::int32_t pid = 0;
    std::uint64_t startTicks = 0;
    friend bool operator==(const ParentMark&, const ParentMark&) = default;

    static constexpr std::string_view kVariable = "VELMORA_PARENT";
    /// "4711:123456"
    std::string text() const;
    static std::optional<ParentMark> parse(std::string_view text);
    /// From the zero-separated variables of /proc/N/environ; nothing without a whole one.
    static std::optional<ParentMark> inEnvironment(std::string_view environment);

    static std::optional<ParentMark> ofProcess(const SystemRoot& root, std::int32_t pid);
    /// Whether that very process is still there. One that ended and was not waited for is gone.
    bool isAlive(const SystemRoot& root) const;
};

}  // namespace velmora
