#pragma once

#include "platform/ProcessCounterSource.h"

#include <cstdint>
#include <map>
#include <string>

namespace velmora {

/// What one process had used up at one moment.
struct RusageEntry {
    std::uint64_t read = 0;
    std::uint64_t write = 0;
    std::uint64_t energy = 0;  ///< Nanojoules.
    std::string name;          ///< "?" when empty.
    friend bool operator==(const RusageEntry&, const RusageEntry&) = default;
};

namespace RusageSnapshot {

/// By process id.
using Entries = std::map<std::int32_t, RusageEntry>;

/// All processes that can be read; empty on failure.
Entries take(ProcessCounterSource& source);

}  // namespace RusageSnapshot

}  // namespace velmora
