#include "platform/linux/disk/MountHints.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    velmora::MountHintTable table;
    velmora::addFstabHints(text, table);
    velmora::addUtabHints(text, table);
    return 0;
}
