#include "platform/linux/network/ResolvConf.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (const auto server = velmora::ResolvConf::firstNameServer(text))
        velmora::ResolvConf::serverAt(*server);
    return 0;
}
