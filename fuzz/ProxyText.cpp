#include "platform/linux/network/ProxyText.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    velmora::ProxyText::parseKio(text);
    velmora::ProxyText::hostOf(text);
    velmora::ProxyText::desktopOf(text);
    return 0;
}
