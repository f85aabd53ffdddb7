#include "platform/linux/disk/VolumeLabel.h"
#include "base/Utf8Text.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const auto& name : {velmora::parseVolumeLabel(text), velmora::parseSystemName(text)}) {
        if (name && (name->empty() || velmora::validUtf8(*name) != *name)) std::abort();
    }
    return 0;
}
