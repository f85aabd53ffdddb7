#include "platform/linux/sensors/HwmonValue.h"
#include "platform/linux/sensors/HwmonChips.h"

#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    velmora::parseMillidegrees(text);
    velmora::hwmonNumber(text, "temp", "_input");
    return 0;
}
