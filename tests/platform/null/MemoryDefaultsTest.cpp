#include "platform/null/MemoryDefaults.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(MemoryDefaults, WriteIsVisibleAtOnceWhateverItsUrgency) {
    MemoryDefaults defaults;
    defaults.setNumber("a", 1);
    defaults.setNumber("b", 2, Defaults::Urgency::relaxed);
    EXPECT_EQ(defaults.number("a"), 1);
    EXPECT_EQ(defaults.number("b"), 2);
}

TEST(MemoryDefaults, LaterWriteReplacesAndRemovalForgets) {
    MemoryDefaults defaults;
    defaults.setText("a", "one");
    defaults.setText("a", "two");
    EXPECT_EQ(defaults.text("a"), "two");
    defaults.remove("a");
    defaults.remove("never");
    EXPECT_EQ(defaults.read("a"), std::nullopt);
}

}  // namespace
}  // namespace velmora
