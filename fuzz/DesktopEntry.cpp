#include "platform/linux/desktop/DesktopEntry.h"

#include "platform/linux/desktop/DesktopEntryExec.h"
#include "platform/linux/desktop/PreferredTerminals.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    static const velmora::DesktopEntryLocales kLocales({"sr-Latn-RS", "de-DE", "en"});
    if (const auto entry = velmora::parseDesktopEntry(text, kLocales); entry && !entry->isHidden) {
        if (entry->name.empty()) std::abort();
        if (entry->command.empty() ? !entry->isBusActivatable : entry->command.front().empty()) std::abort();
    }
    if (const auto words = velmora::execArguments(text, text); words && words->empty()) std::abort();
    for (const auto& id : velmora::parseTerminalList(text)) {
        if (id.empty()) std::abort();
    }
    return 0;
}
