#include "model/TempCategory.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmora {
namespace {

TEST(TempCategory, OrderAndRawValuesAreFixed) {
    std::vector<std::string> rawValues;
    for (const TempCategory category : kAllTempCategories) rawValues.emplace_back(rawValue(category));
    EXPECT_EQ(rawValues,
              (std::vector<std::string>{"cpu", "gpu", "soc", "ssd", "enclosure", "battery", "other"}));
}

TEST(TempCategory, RawValueLeadsBackToItsCategory) {
    for (const TempCategory category : kAllTempCategories) {
        EXPECT_EQ(tempCategoryFromRawValue(rawValue(category)), category);
    }
    EXPECT_EQ(tempCategoryFromRawValue("memory"), std::nullopt);
}

}  // namespace
}  // namespace velmora
