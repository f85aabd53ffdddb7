#include "settings/module/ModuleChoices.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora {
namespace {

TEST(ModuleChoicesTest, TheIntervalsAreOneTwoThreeFiveAndTenSeconds) {
    const std::vector<std::string> titles{"1 s", "2 s", "3 s", "5 s", "10 s"};
    std::vector<std::string> found;
    for (const double seconds : ModuleChoices::kIntervals) {
        found.push_back(ModuleChoices::intervalTitle(seconds));
    }
    EXPECT_EQ(found, titles);
}

TEST(ModuleChoicesTest, AnOptionsValueLeadsBackToItsSeconds) {
    for (const double seconds : ModuleChoices::kIntervals) {
        EXPECT_EQ(ModuleChoices::intervalFromValue(ModuleChoices::intervalValue(seconds)), seconds);
    }
}

TEST(ModuleChoicesTest, AnIntervalThatIsNoOptionHasNoValue) {
    for (const double seconds :
         {0.0, 0.5, 2.5, 1.0000001, 4.0, 60.0, -1.0, std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(ModuleChoices::intervalValue(seconds), "") << seconds;
    }
}

TEST(ModuleChoicesTest, AValueThatIsNoOptionHasNoSeconds) {
    for (const char* value : {"", "0", "4", "2.0", "2 s", "ten", "-1"}) {
        EXPECT_EQ(ModuleChoices::intervalFromValue(value), std::nullopt) << value;
    }
}

TEST(ModuleChoicesTest, TheColoursStandInTheirOrder) {
    const std::vector<std::string_view> colors{"0A84FF", "5856D6", "30B0C7", "34C759",
                                               "FF9500", "FF3B30", "FF2D92"};
    EXPECT_EQ(std::vector(ModuleChoices::kColors.begin(), ModuleChoices::kColors.end()), colors);
}

}  // namespace
}  // namespace velmora
