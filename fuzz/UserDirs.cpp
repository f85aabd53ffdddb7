#include "platform/linux/files/UserDirs.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const auto& [key, folder] : velmora::parseUserDirs(text, "/home/ada")) {
        if (!folder.is_absolute()) std::abort();
    }
    return 0;
}
