#include "platform/linux/traffic/TrafficBlock.h"

#include "base/FormatText.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace velmora::TrafficBlock {
namespace {

std::uint64_t scaled(std::uint64_t bytes, double scale) {
    if (scale == 1) return bytes;
    return static_cast<std::uint64_t>(std::llround(static_cast<double>(bytes) * scale));
}

}  // namespace

std::string lineName(std::string_view shownName) {
    std::string name(shownName);
    std::ranges::replace(name, ',', ';');
    return name.empty() ? "?" : name;
}

void appendHeader(std::string& text) {
    text += ",bytes_in,bytes_out,\n";
}

void appendRow(std::string& text, std::string_view name, const ProcessTraffic& traffic, double scale) {
    appendFormat(text, "%s.%d,%u,%u,\n",
                 {name, traffic.pid, scaled(traffic.received, scale), scaled(traffic.sent, scale)});
}

}  // namespace velmora::TrafficBlock
