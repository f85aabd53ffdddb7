#include "model/ModuleStyle.h"

#include <cstddef>

namespace velmora {
namespace {

constexpr std::array<std::string_view, kAllStyles.size()> kRawValues = {
    "graphValue", "value", "graph", "gauge", "gaugeOnly", "pie", "pieOnly", "bar", "barOnly"};

}  // namespace

std::string_view rawValue(ModuleStyle style) {
    return kRawValues[static_cast<std::size_t>(style)];
}

std::optional<ModuleStyle> styleFromRawValue(std::string_view raw) {
    for (const ModuleStyle style : kAllStyles) {
        if (rawValue(style) == raw) return style;
    }
    return std::nullopt;
}

}  // namespace velmora
