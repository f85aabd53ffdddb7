#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velmora {

struct StatsSnapshot;

/// The whole snapshot as one line of JSON: every record and field under its own name, in the order of the
/// records. An absent figure is left out; `timestamp` is seconds since 1970; `updated` lists the modules. A
/// number that JSON cannot hold (not finite) is written as null.
std::string snapshotToJson(const StatsSnapshot& snapshot);

/// The reverse. What is missing, or of another type, takes its default; null is 0 or absent; unknown names
/// are skipped. Nothing, with a sentence in `error`, for text that is no JSON object.
std::optional<StatsSnapshot> snapshotFromJson(std::string_view text, std::string& error);

}  // namespace velmora
