#include "settings/controls/VMSegmented.h"

#include "settings/Input.h"
#include "settings/controls/CapsuleSegmentedControl.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace velmora {
namespace {

using testing::ElementsAre;

TEST(VMSegmentedTest, SelectionIsHeldWithinTheRange) {
    VMSegmented high({"wifi", "globe"}, {}, 9, 80, 24);
    EXPECT_EQ(high.control().selectedIndex(), 1);
    high.setSelection(-3);
    EXPECT_EQ(high.control().selectedIndex(), 0);
}

TEST(VMSegmentedTest, UserSelectionIsToldAndOneFromOutsideIsNot) {
    VMSegmented segmented({"wifi", "globe"}, {}, 0, 80, 24);
    std::vector<int> selections;
    segmented.onSelect([&](int index) { selections.push_back(index); });
    segmented.setSelection(1);
    Input::click(segmented.control(), QPoint(10, 12));
    EXPECT_THAT(selections, ElementsAre(0));
}

TEST(VMSegmentedTest, CornersHaveARadiusOfSix) {
    VMSegmented segmented({"wifi"}, {}, 0, 80, 24);
    EXPECT_EQ(segmented.control().cornerRadius(), 6);
}

TEST(VMSegmentedTest, UnknownSymbolLeavesItsSegmentEmpty) {
    VMSegmented segmented({"no.such.symbol", "wifi"}, {}, 0, 80, 24);
    EXPECT_EQ(segmented.control().segmentCount(), 2);
    EXPECT_TRUE(segmented.control().iconFrame(0).isEmpty());
    EXPECT_EQ(segmented.control().iconFrame(1).size(), QSizeF(12, 12));
}

TEST(VMSegmentedTest, NoSymbolsDoNoHarm) {
    VMSegmented segmented({}, {}, 4, 80, 24);
    EXPECT_EQ(segmented.control().selectedIndex(), 0);
}

}  // namespace
}  // namespace velmora
