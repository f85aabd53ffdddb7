#include "platform/linux/processor/ProcStat.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::vector<velmora::ProcStat::CoreTimes> cores;
    velmora::ProcStat::parseCoreTimes(text, cores);
    velmora::ProcStat::parseBootTime(text);
    return 0;
}
