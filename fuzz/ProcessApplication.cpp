#include "platform/linux/desktop/ControlGroupApplication.h"
#include "platform/linux/desktop/LaunchedEntry.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const auto& id : velmora::applicationIdsOfControlGroup(text)) {
        if (id.empty()) std::abort();
    }
    if (const auto path = velmora::launchedEntry(text, 42); path && path->empty()) std::abort();
    if (const auto id = velmora::applicationOfFlatpakInfo(text); id && id->empty()) std::abort();
    return 0;
}
