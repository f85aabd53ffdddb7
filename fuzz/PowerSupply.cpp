#include "platform/linux/power/PowerSupply.h"
#include "platform/linux/power/MachineBattery.h"

#include <cstdint>
#include <string_view>
#include <vector>

// The properties of power supplies, one after another behind a NUL, and what is made of all of them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view text(reinterpret_cast<const char*>(data), size);
    std::vector<velmora::PowerSupply> supplies;
    while (!text.empty() && supplies.size() < 8) {
        const auto length = std::min(text.find('\0'), text.size());
        supplies.push_back(velmora::parsePowerSupply(text.substr(0, length)));
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    velmora::machineBattery(supplies);
    velmora::peripheralServices(supplies);
    return 0;
}
