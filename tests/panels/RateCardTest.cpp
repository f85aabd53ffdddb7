#include "panels/RateCard.h"

#include "panels/PanelFixture.h"
#include "panels/kit/Series.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RateCardTest : public PanelFixture {
protected:
    /// The pieces of the card in a panel of their own, as `at` takes them.
    MenuPanel panel(double rate = 0) const {
        MenuPanel panel;
        panel.cards.push_back(
            rateCard({"disk.read", rate, top}, {"disk.write", 2000, bottom}, context(StatsModule::disk)));
        return panel;
    }
    ShortSeries top;
    ShortSeries bottom;
};

TEST_F(RateCardTest, PeaksAreThoseOfTheGraphInTheOrderOfTheHeader) {
    for (const double rate : {1e6, 5e6, 2e6}) top.append(rate);
    for (const double rate : {3e3, 1e3, 2e3}) bottom.append(rate);
    EXPECT_THAT(at<PeakRow>(panel(), 0, 2).items,
                ElementsAre(PeakRow::Item{"Peak", "5.0 MB/s"}, PeakRow::Item{"Peak", "3 KB/s"}));
}

TEST_F(RateCardTest, PeaksOfNoHistoryAreZero) {
    EXPECT_EQ(at<PeakRow>(panel(), 0, 2).items.at(0).value, "0 KB/s");
}

TEST_F(RateCardTest, RatesThatAreNoNumbersAreNoPeak) {
    for (const double rate : {std::nan(""), 4e6, -1.0, std::numeric_limits<double>::infinity()})
        top.append(rate);
    EXPECT_EQ(at<PeakRow>(panel(), 0, 2).items.at(0).value, "4.0 MB/s");
}

TEST_F(RateCardTest, HoverTellsBothRatesOfTheSlot) {
    for (const double rate : {1e6, 5e6}) top.append(rate);
    for (const double rate : {3e3, 1e3}) bottom.append(rate);
    settings.setInterval(10, StatsModule::disk);
    const auto hover = at<Graph>(panel(), 0, 1).hover;
    ASSERT_TRUE(hover);
    EXPECT_EQ(hover->interval, 10);
    EXPECT_THAT(hover->rows(59), ElementsAre(HoverChipRow{Series::primary, "Read", "5.0 MB/s"},
                                             HoverChipRow{Series::secondary, "Write", "1 KB/s"}));
    EXPECT_THAT(hover->rows(58), ElementsAre(HoverChipRow{Series::primary, "Read", "1.0 MB/s"},
                                             HoverChipRow{Series::secondary, "Write", "3 KB/s"}));
    EXPECT_THAT(hover->rows(57), IsEmpty());
}

TEST_F(RateCardTest, ADirectionWithoutAValueInTheSlotCountsAsZero) {
    top.append(5e6);
    EXPECT_EQ(at<Graph>(panel(), 0, 1).hover->rows(59).at(1).value, "0 KB/s");
}

TEST_F(RateCardTest, TheGraphTellsAScreenReaderTheNewestRates) {
    const Graph graph = at<Graph>(panel(7e6), 0, 1);
    EXPECT_EQ(graph.name, "Disk");
    EXPECT_EQ(graph.value, "Read 7.0 MB/s, Write 2 KB/s");
}

}  // namespace
}  // namespace velmora
