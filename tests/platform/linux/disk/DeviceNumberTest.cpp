#include "platform/linux/disk/DeviceNumber.h"

#include <gtest/gtest.h>

#include <string>

namespace velmora {
namespace {

TEST(DeviceNumber, TextIsReadAndWrittenAlike) {
    EXPECT_EQ(DeviceNumber::parse("259:3"), (DeviceNumber{259, 3}));
    EXPECT_EQ((DeviceNumber{259, 3}).text(), "259:3");
    EXPECT_EQ(DeviceNumber::parse("4294967295:4294967295"), (DeviceNumber{4294967295U, 4294967295U}));
}

TEST(DeviceNumber, OtherTextGivesNothing) {
    for (const char* text :
         {"", ":", "8", "8:", ":1", "8:1 ", " 8:1", "8:1:2", "-8:1", "8:x", "4294967296:0"})
        EXPECT_EQ(DeviceNumber::parse(text), std::nullopt) << text;
    EXPECT_EQ(DeviceNumber::parse(std::string(3, '\0') + ":1"), std::nullopt);
}

}  // namespace
}  // namespace velmora
