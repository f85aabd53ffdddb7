#include "settings/blocks/TwoLineHeading.h"

#include "settings/Descendants.h"
#include "settings/blocks/TextLabel.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(TwoLineHeadingTest, SubtitleStandsTwoPointsBelowTheTitle) {
    TwoLineHeading heading;
    heading.setTexts("Colour", "Of the item in the status bar");
    heading.resize(300, heading.heightForWidth(300));
    heading.show();
    const auto labels = descendants<TextLabel>(heading);
    ASSERT_EQ(labels.size(), 2);
    EXPECT_EQ(labels[1]->y(), labels[0]->y() + labels[0]->height() + 2);
    EXPECT_EQ(labels[0]->style().size, 13);
    EXPECT_EQ(labels[1]->style().size, 11);
    EXPECT_EQ(labels[1]->style().rank, InkRank::tertiary);
}

}  // namespace
}  // namespace velmora
