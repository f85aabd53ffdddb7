#include "platform/null/NullDiskSources.h"

#include "platform/null/NullTextOrder.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(NullDiskSources, NothingCanBeListed) {
    std::vector<BlockDriverCounters> drivers;
    std::vector<MediaCounters> media;
    EXPECT_FALSE(NullBlockDeviceSource().drivers(drivers));
    EXPECT_FALSE(NullBlockDeviceSource().media(MediaClass::media, media));
    EXPECT_TRUE(NullVolumeSource().mountedVolumes().empty());
    EXPECT_EQ(NullVolumeSource().values("/"), std::nullopt);
    EXPECT_EQ(NullVolumeSource().mountSource("/"), std::nullopt);
    EXPECT_EQ(NullDiskPlaceSource().places(), DiskPlaces());
    EXPECT_EQ(NullDiskPlaceSource().dirSize("/", {}), 0);
}

TEST(NullTextOrder, CaseOfAsciiLettersDoesNotCount) {
    const NullTextOrder order;
    EXPECT_TRUE(order.compareIgnoringCase("Alpha", "aLPHA") == 0);
    EXPECT_TRUE(order.compareIgnoringCase("Alpha", "beta") < 0);
    EXPECT_TRUE(order.compareIgnoringCase("a", "") > 0);
}

}  // namespace
}  // namespace velmora
