#include "platform/linux/disk/DeviceNumber.h"

#include "base/FormatText.h"
#include "base/ParseNumber.h"

namespace velmora {

std::string DeviceNumber::text() const {
    return formatText("%u:%u", {major, minor});
}

std::optional<DeviceNumber> DeviceNumber::parse(std::string_view text) {
    const auto colon = text.find(':');
    if (colon == std::string_view::npos) return std::nullopt;
    const auto major = parseNumber<std::uint32_t>(text.substr(0, colon));
    const auto minor = parseNumber<std::uint32_t>(text.substr(colon + 1));
    if (!major || !minor) return std::nullopt;
    return DeviceNumber{*major, *minor};
}

}  // namespace velmora
