#include "settings/blocks/RowDivider.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(RowDividerTest, LineIsInsetAtTheLeadingEdgeOnly) {
    const QRectF line = RowDivider::line(300, 2);
    EXPECT_EQ(line, QRectF(16, 0, 284, 0.5));
}

TEST(RowDividerTest, LineIsNeverThinnerThanAPixel) {
    EXPECT_EQ(RowDivider::line(300, 1).height(), 1);
    EXPECT_EQ(RowDivider::line(300, 3).height(), 0.5);
    EXPECT_EQ(RowDivider::line(300, 0).height(), 1);
    EXPECT_EQ(RowDivider::line(10, 1).width(), 0);
}

}  // namespace
}  // namespace velmora
