#include "platform/linux/disk/ProcDiskStats.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view text(reinterpret_cast<const char*>(data), size);
    while (velmora::ProcDiskStats::takeLine(text)) continue;
    return 0;
}
