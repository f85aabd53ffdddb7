#include "settings/module/ModuleChoices.h"

#include "base/FormatText.h"

namespace velmora::ModuleChoices {

std::string intervalTitle(double seconds) {
    return formatText("%.0f s", {seconds});
}

std::string intervalValue(double seconds) {
    for (const double option : kIntervals) {
        if (option == seconds) return formatText("%.0f", {option});
    }
    return {};
}

std::optional<double> intervalFromValue(std::string_view value) {
    for (const double option : kIntervals) {
        if (intervalValue(option) == value) return option;
    }
    return std::nullopt;
}

}  // namespace velmora::ModuleChoices
