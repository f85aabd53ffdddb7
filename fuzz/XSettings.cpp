#include "platform/qt/x11/XSettings.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto text = velmora::xSettingText(bytes, "Net/IconThemeName");
    if (text && text->size() > size) std::abort();
    return 0;
}
