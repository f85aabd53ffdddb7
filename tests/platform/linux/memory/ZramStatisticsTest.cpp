#include "platform/linux/memory/ZramStatistics.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(ZramStatisticsTest, MemoryIsTheThirdNumber) {
    EXPECT_EQ(parseZramMemory("1638400000 409600000 419430400        0 430000000        0        0\n"),
              419'430'400U);
}

TEST(ZramStatisticsTest, MalformedOrCutTextIsAbsent) {
    for (const char* text : {"", "1 2", "1 2 3", "1 2 x 4", "1 2 99999999999999999999999 4"}) {
        EXPECT_EQ(parseZramMemory(text), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace velmora
