#include "samplers/TopProcessSampler.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const auto& parse : {TopProcessSampler::parseCPULine, TopProcessSampler::parseMemoryLine}) {
        const auto list = TopProcessSampler::parseOutput(text, 5, parse);
        if (list.size() > 5) __builtin_trap();
    }
    return 0;
}
