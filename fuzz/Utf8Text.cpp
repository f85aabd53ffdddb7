#include "base/Utf8Text.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::string valid = velmora::validUtf8(text);
    // What is valid stays as it is, and a byte grows to three at most.
    if (velmora::validUtf8(valid) != valid || valid.size() > 3 * text.size()) std::abort();
    return 0;
}
