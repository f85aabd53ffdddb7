#include "look/Theme.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(Theme, AccentIsOpaqueBlue) {
    EXPECT_EQ(Theme::accent.rgba(), qRgba(10, 132, 255, 255));
}

}  // namespace
}  // namespace velmora
