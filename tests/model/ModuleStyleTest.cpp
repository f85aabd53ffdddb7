#include "model/ModuleStyle.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmora {
namespace {

TEST(ModuleStyle, OrderAndRawValuesAreAsStored) {
    std::vector<std::string> rawValues;
    for (const ModuleStyle style : kAllStyles) rawValues.emplace_back(rawValue(style));
    EXPECT_EQ(rawValues, (std::vector<std::string>{"graphValue", "value", "graph", "gauge", "gaugeOnly",
                                                   "pie", "pieOnly", "bar", "barOnly"}));
}

TEST(ModuleStyle, RawValueLeadsBackToItsStyle) {
    for (const ModuleStyle style : kAllStyles) EXPECT_EQ(styleFromRawValue(rawValue(style)), style);
}

TEST(ModuleStyle, UnknownRawValueIsNoStyle) {
    EXPECT_EQ(styleFromRawValue("GraphValue"), std::nullopt);
    EXPECT_EQ(styleFromRawValue("donut"), std::nullopt);
    EXPECT_EQ(styleFromRawValue(""), std::nullopt);
}

}  // namespace
}  // namespace velmora
