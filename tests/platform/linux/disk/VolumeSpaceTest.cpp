#include "platform/linux/disk/VolumeSpace.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace velmora {
namespace {

constexpr auto kLargest = std::numeric_limits<std::int64_t>::max();
constexpr auto kLargestUnsigned = std::numeric_limits<std::uint64_t>::max();

TEST(VolumeSpace, BlocksAreBytesBySize) {
    EXPECT_EQ(volumeSpaceOfBlocks(100, 25, 4096), (VolumeSpace{409600, 102400}));
}

TEST(VolumeSpace, ProductsThatNoStoreHasAreCut) {
    EXPECT_EQ(volumeSpaceOfBlocks(kLargestUnsigned, kLargestUnsigned, 4096),
              (VolumeSpace{kLargest, kLargest}));
    EXPECT_EQ(volumeSpaceOfBlocks(kLargestUnsigned, 0, 1), (VolumeSpace{kLargest, 0}));
}

TEST(VolumeSpace, BlocksWithoutSizeAreNothing) {
    EXPECT_EQ(volumeSpaceOfBlocks(100, 25, 0), (VolumeSpace{0, 0}));
}

TEST(VolumeSpace, MoreAvailableThanThereIsIsUnknown) {
    EXPECT_EQ(volumeSpaceOfBlocks(100, kLargestUnsigned - 5, 4096), (VolumeSpace{409600, std::nullopt}));
}

TEST(VolumeSpace, PathThatLeadsNowhereGivesNothing) {
    EXPECT_EQ(volumeSpace("/nowhere/at/all"), std::nullopt);
}

TEST(VolumeSpace, RootHasSpace) {
    const auto space = volumeSpace("/");
    ASSERT_TRUE(space);
    EXPECT_GT(space->total, 0);
}

}  // namespace
}  // namespace velmora
