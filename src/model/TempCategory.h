#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace velmora {

/// What a temperature was measured at.
enum class TempCategory { cpu, gpu, soc, ssd, enclosure, battery, other };

inline constexpr std::array kAllTempCategories = {
    TempCategory::cpu,       TempCategory::gpu,     TempCategory::soc,  TempCategory::ssd,
    TempCategory::enclosure, TempCategory::battery, TempCategory::other};

constexpr std::size_t indexOf(TempCategory category) {
    return static_cast<std::size_t>(category);
}

/// "cpu", "gpu" …; the key of its name in the string tables is "temp." followed by it.
std::string_view rawValue(TempCategory category);
std::optional<TempCategory> tempCategoryFromRawValue(std::string_view raw);

}  // namespace velmora
