#include "panels/FigureText.h"

#include "base/FormatText.h"
#include "model/StatsFormat.h"

#include <cmath>

namespace velmora::FigureText {

std::string bytes(double size, const ByteStyle& style) {
    return StatsFormat::bytes(std::isfinite(size) && size > 0 ? size : 0, style);
}

std::string celsius(double temperature) {
    if (!std::isfinite(temperature)) return std::string(StatsFormat::kAbsent);
    return formatText("%.1f °C", {temperature});
}

std::string degrees(double temperature) {
    if (!std::isfinite(temperature)) return std::string(StatsFormat::kAbsent);
    return formatText("%.0f°", {temperature});
}

std::string spoken(std::initializer_list<std::pair<std::string_view, std::string_view>> figures) {
    std::string text;
    for (const auto& [label, value] : figures) {
        if (!text.empty()) text += ", ";
        text.append(label);
        if (!label.empty()) text += ' ';
        text.append(value);
    }
    return text;
}

}  // namespace velmora::FigureText
