#include "samplers/ProcessorRecords.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

namespace {

/// The input as whole words; copied, since it need not be aligned.
template <typename Word>
std::vector<Word> wordsOf(const std::uint8_t* data, std::size_t size) {
    std::vector<Word> words(size / sizeof(Word));
    if (!words.empty()) std::memcpy(words.data(), data, words.size() * sizeof(Word));
    return words;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    std::vector<CoreTicks> cores;
    // The first byte is the number of cores that the record claims.
    if (size > 0) {
        ProcessorRecords::decodeCoreTicks(wordsOf<std::uint32_t>(data + 1, size - 1), data[0], cores);
    }
    ProcessorRecords::decodeBootTime(std::as_bytes(std::span(data, size)));
    ProcessorRecords::decodeLoadInfo(wordsOf<std::int32_t>(data, size));
    const auto properties = nlohmann::json::parse(data, data + size, nullptr, false);
    ProcessorRecords::acceleratorUtilization(properties);
    return 0;
}
