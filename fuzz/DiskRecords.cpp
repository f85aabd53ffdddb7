#include "samplers/DiskRecords.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    const auto properties = nlohmann::json::parse(data, data + size, nullptr, false);
    DiskRecords::decodeBlockDriver(properties);
    for (const MediaClass mediaClass : {MediaClass::apfsVolume, MediaClass::media})
        DiskRecords::decodeMedia(properties, DiskRecords::mediaKeys(mediaClass));
    return 0;
}
