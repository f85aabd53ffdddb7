#include "model/SnapshotJson.h"
#include "model/StatsSnapshot.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

// What was read once is written in a form that reads back equal.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string error;
    const auto snapshot =
        velmora::snapshotFromJson(std::string_view(reinterpret_cast<const char*>(data), size), error);
    if (!snapshot) {
        if (error.empty()) std::abort();
        return 0;
    }
    if (velmora::snapshotFromJson(velmora::snapshotToJson(*snapshot), error) != snapshot) std::abort();
    return 0;
}
