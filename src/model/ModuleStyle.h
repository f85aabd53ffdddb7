#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace velmora {

/// What a module's item on the status bar draws. The raw value is stored; the title's key in the string
/// tables is "style." followed by it.
enum class ModuleStyle { graphValue, value, graph, gauge, gaugeOnly, pie, pieOnly, bar, barOnly };

inline constexpr std::array kAllStyles = {
    ModuleStyle::graphValue, ModuleStyle::value,     ModuleStyle::graph,
    ModuleStyle::gauge,      ModuleStyle::gaugeOnly, ModuleStyle::pie,
    ModuleStyle::pieOnly,    ModuleStyle::bar,       ModuleStyle::barOnly};

std::string_view rawValue(ModuleStyle style);
/// Exact and case sensitive; nothing for any other text.
std::optional<ModuleStyle> styleFromRawValue(std::string_view raw);

}  // namespace velmora
