#include "panels/kit/GraphHoverInfo.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora {
namespace {

GraphHover everyTwoSeconds() {
    GraphHover hover;
    hover.interval = 2;
    hover.ago = "%ds ago";
    hover.now = "Now";
    return hover;
}

TEST(GraphHoverInfo, LastSlotIsNow) {
    EXPECT_EQ(slotTitle(everyTwoSeconds(), 59), "Now");
}

TEST(GraphHoverInfo, SlotBeforeItIsOneIntervalAgo) {
    EXPECT_EQ(slotTitle(everyTwoSeconds(), 58), "2s ago");
    EXPECT_EQ(slotTitle(everyTwoSeconds(), 0), "118s ago");
}

TEST(GraphHoverInfo, FractionOfASecondIsRounded) {
    GraphHover hover = everyTwoSeconds();
    hover.interval = 0.3;
    EXPECT_EQ(slotTitle(hover, 58), "Now");
    EXPECT_EQ(slotTitle(hover, 57), "1s ago");
}

TEST(GraphHoverInfo, IntervalThatIsNoDurationMeansNow) {
    GraphHover hover = everyTwoSeconds();
    for (const double interval : {0.0, -5.0, std::numeric_limits<double>::quiet_NaN()}) {
        hover.interval = interval;
        EXPECT_EQ(slotTitle(hover, 10), "Now");
    }
}

TEST(GraphHoverInfo, ReportsTheRowsOfTheSlot) {
    GraphHover hover = everyTwoSeconds();
    hover.rows = [](int slot) {
        return std::vector<HoverChipRow>{{std::nullopt, "slot", slot == 58 ? "58" : "?"}};
    };
    const auto info = hoverInfo(hover, 58, QRectF(8, 30, 268, 32));
    ASSERT_TRUE(info);
    EXPECT_EQ(info->anchor, QRectF(8, 30, 268, 32));
    EXPECT_DOUBLE_EQ(*info->lineFraction, 58.5 / 60);
    EXPECT_EQ(info->title, "2s ago");
    ASSERT_EQ(info->rows.size(), 1U);
    EXPECT_EQ(info->rows[0].value, "58");
}

TEST(GraphHoverInfo, SlotWithoutRowsReportsNothing) {
    GraphHover hover = everyTwoSeconds();
    EXPECT_FALSE(hoverInfo(hover, 58, {}));
    hover.rows = [](int) { return std::vector<HoverChipRow>(); };
    EXPECT_FALSE(hoverInfo(hover, 58, {}));
}

TEST(GraphHoverKey, LastReportThatIsNotEmptyWins) {
    std::optional<GraphHoverInfo> value;
    GraphHoverKey::reduce(value, GraphHoverInfo{{}, {}, "first", {}});
    GraphHoverKey::reduce(value, GraphHoverInfo{{}, {}, "second", {}});
    GraphHoverKey::reduce(value, std::nullopt);
    ASSERT_TRUE(value);
    EXPECT_EQ(value->title, "second");
}

TEST(GraphHoverKey, NoReportGivesNone) {
    std::optional<GraphHoverInfo> value;
    GraphHoverKey::reduce(value, std::nullopt);
    EXPECT_FALSE(value);
}

}  // namespace
}  // namespace velmora
