#include "platform/null/NullProcessIconSource.h"
#include "platform/null/NullShortcutTargets.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(NullShortcutTargets, NoToolIsFoundAndOpeningOneDoesNothing) {
    NullShortcutTargets targets;
    for (const ShortcutKind kind : kAllShortcutKinds) EXPECT_EQ(targets.find(kind), std::nullopt);
    targets.open({"/usr/share/applications/a.desktop", "A"});
}

TEST(NullProcessIconSource, NoProcessHasAnIcon) {
    NullProcessIconSource source;
    for (const std::int32_t pid : {-1, 0, 1}) EXPECT_EQ(source.iconOf(pid), std::nullopt);
}

}  // namespace
}  // namespace velmora
