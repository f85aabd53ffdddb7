#include "platform/linux/network/ProcNetDev.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::vector<velmora::ProcNetDev::Row> rows;
    velmora::ProcNetDev::parse(text, rows);
    return 0;
}
