#include "samplers/MemoryRecords.h"

#include <cstddef>
#include <cstdint>
#include <span>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto record = std::as_bytes(std::span(data, size));
    velmora::MemoryRecords::decodeStatistics(record, 16384);
    velmora::MemoryRecords::decodeSwapUsage(record);
    return 0;
}
