#include "model/TempCategory.h"

namespace velmora {
namespace {

constexpr std::array<std::string_view, kAllTempCategories.size()> kRawValues = {
    "cpu", "gpu", "soc", "ssd", "enclosure", "battery", "other"};

}  // namespace

std::string_view rawValue(TempCategory category) {
    return kRawValues[indexOf(category)];
}

std::optional<TempCategory> tempCategoryFromRawValue(std::string_view raw) {
    for (const TempCategory category : kAllTempCategories) {
        if (rawValue(category) == raw) return category;
    }
    return std::nullopt;
}

}  // namespace velmora
