#include "samplers/ProcessRecords.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    const auto bytes = std::as_bytes(std::span(data, size));
    ProcessRecords::name(bytes);
    ProcessRecords::rusage(bytes);
    ProcessRecords::parentage(static_cast<std::int32_t>(size), bytes);
    ProcessRecords::parentage(ProcessRecords::kBsdInfoSize, bytes);
    std::int32_t result = 0;
    if (size >= sizeof result) std::memcpy(&result, data, sizeof result);
    const std::vector<std::int32_t> buffer(size / 4);
    if (ProcessRecords::idsByCount(result, buffer).size() > buffer.size()) __builtin_trap();
    if (ProcessRecords::idsByByteCount(result, buffer).size() > buffer.size()) __builtin_trap();
    return 0;
}
