#include "platform/linux/memory/ArcStats.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(ArcStatsTest, ReclaimableIsTheSizeAboveTheSmallest) {
    EXPECT_EQ(
        parseReclaimableArc("13 1 0x01 147\nname type data\nc 4 9\nc_min 4 300\nc_max 4 9\nsize 4 1000\n"),
        700U);
}

TEST(ArcStatsTest, SizeBelowTheSmallestGivesNothingBack) {
    EXPECT_EQ(parseReclaimableArc("size 4 100\nc_min 4 300\n"), 0U);
}

TEST(ArcStatsTest, MissingOrMalformedLineIsAbsent) {
    for (const char* text : {"", "size 4 100\n", "c_min 4 100\n", "size 4\nc_min 4 1\n",
                             "size 4 x\nc_min 4 1\n", "c_min 4 1\nsize 4 100"}) {
        EXPECT_EQ(parseReclaimableArc(text), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace velmora
