#include "panels/MemoryMenuView.h"

#include "model/StatsFormat.h"
#include "panels/PanelFixture.h"
#include "panels/kit/PanelText.h"
#include "panels/kit/RowGeometry.h"
#include "panels/kit/Series.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

class MemoryMenuViewTest : public PanelFixture {
protected:
    MenuPanel panel(const MemoryStats& stats, const std::vector<TopProcess>& top = {}) const {
        return memoryPanel(stats, context(StatsModule::memory), top);
    }
    RingStat pressureRing(double pressure) const {
        MemoryStats stats;
        stats.pressure = pressure;
        return at<RingRow>(panel(stats), 0, 1).rings.at(0);
    }
    const MemoryStats& recorded() const { return recordedFigures().memory; }
};

TEST_F(MemoryMenuViewTest, CardsStandInTheirOrder) {
    EXPECT_THAT(outline(panel(recorded())),
                ElementsAre("Memory", "Breakdown", "Processes", "Page ins", "Swap file"));
    EXPECT_EQ(panel(recorded()).name, "Memory");
}

TEST_F(MemoryMenuViewTest, RingsOfPressureAndUseStandSideBySide) {
    const MenuPanel shown = panel(recorded());
    EXPECT_EQ(at<CardHeader>(shown, 0, 0), (CardHeader{"Memory", "", ""}));
    const RingRow row = at<RingRow>(shown, 0, 1);
    EXPECT_EQ(row.spacing, 26);
    ASSERT_THAT(row.rings, SizeIs(2));
    EXPECT_EQ(row.rings[0], (RingStat{0.64, "64%", "Pressure", Series::orange, 46, 5, 11}));
    // 19814547456 of 34359738368 bytes.
    const RingStat& usage = row.rings[1];
    EXPECT_NEAR(usage.fraction, 0.5767, 0.0001);
    EXPECT_EQ(usage, (RingStat{usage.fraction, "58%", "Usage", Series::primary, 46, 5, 11}));
}

TEST_F(MemoryMenuViewTest, PressureAboveThreeQuartersIsRed) {
    EXPECT_EQ(pressureRing(0.76).tint, Series::red);
    EXPECT_EQ(pressureRing(0.75).tint, Series::orange);
}

TEST_F(MemoryMenuViewTest, PressureAboveAHalfIsOrange) {
    EXPECT_EQ(pressureRing(0.51).tint, Series::orange);
    EXPECT_EQ(pressureRing(0.5).tint, Series::primary);
    EXPECT_EQ(pressureRing(0).tint, Series::primary);
}

TEST_F(MemoryMenuViewTest, UseOfNoMemoryIsZero) {
    MemoryStats stats;
    stats.used = 5;
    const RingStat usage = at<RingRow>(panel(stats), 0, 1).rings.at(1);
    EXPECT_EQ(usage.fraction, 0);
    EXPECT_EQ(usage.text, "0%");
}

TEST_F(MemoryMenuViewTest, BreakdownHasFourSizes) {
    EXPECT_EQ(at<CardHeader>(panel(recorded()), 1, 0), (CardHeader{"Breakdown", "", ""}));
    EXPECT_THAT(rows(panel(recorded()).cards[1]),
                ElementsAre(Pair("App memory", "14.6 GB"), Pair("Wired", "3.01 GB"),
                            Pair("Compressed", "2.21 GB"), Pair("Free", "14.55 GB")));
}

TEST_F(MemoryMenuViewTest, SizesAreWrittenAsTheLanguageDoes) {
    l10n.apply("de");
    EXPECT_EQ(rows(panel(recorded()).cards[1]).front().second, "14,6\u00a0GB");
    l10n.apply("fr");
    EXPECT_EQ(rows(panel({}).cards[1]).front().second, StatsFormat::bytes(0, l10n.byteStyle()));
}

TEST_F(MemoryMenuViewTest, TheLargestSizesStillShow) {
    MemoryStats stats;
    stats.app = std::numeric_limits<std::uint64_t>::max();
    EXPECT_EQ(rows(panel(stats).cards[1]).front().second, "9.22 EB");
}

TEST_F(MemoryMenuViewTest, ProcessesAreInBytes) {
    const ProcessCard card = at<ProcessCard>(panel(recorded(), {{7, "one", 2097152}}), 2, 0);
    EXPECT_EQ(card.title, "Processes");
    EXPECT_EQ(card.note, "Real memory");
    EXPECT_EQ(card.rowCount, 5);
    EXPECT_THAT(card.processes, ElementsAre(TopProcess{7, "one", 2097152}));
    EXPECT_EQ(card.format(2097152), "2.1 MB");
}

TEST_F(MemoryMenuViewTest, SizesThatAreNoneNeverReachTheFormatter) {
    const ProcessCard card = at<ProcessCard>(panel(recorded()), 2, 0);
    EXPECT_EQ(card.format(-5000), "Zero KB");
    EXPECT_EQ(card.format(std::numeric_limits<double>::quiet_NaN()), "Zero KB");
    EXPECT_EQ(card.format(std::numeric_limits<double>::infinity()), "Zero KB");
}

TEST_F(MemoryMenuViewTest, PagingShowsRates) {
    MemoryStats stats;
    stats.pageInPerSec = 38.5;
    stats.pageOutPerSec = 4000;
    EXPECT_THAT(rows(panel(stats).cards[3]),
                ElementsAre(Pair("Page ins", "0 KB/s"), Pair("Page outs", "4 KB/s")));
}

TEST_F(MemoryMenuViewTest, SwapHasABarAndBothSizes) {
    EXPECT_EQ(at<BarRow>(panel(recorded()), 4, 0),
              (BarRow{"Swap file", UsageBar{1288490188.0 / 8589934592.0, Series::primary, 4},
                      "1.29 GB / 8.59 GB", 0, "888.8 MB / 8.59 GB"}));
}

TEST_F(MemoryMenuViewTest, SwapBarKeepsItsLengthWhileTheFigureGrows) {
    MemoryStats stats = recorded();
    const std::string sample = at<BarRow>(panel(stats), 4, 0).valueSample;
    stats.swapUsed = 1;
    EXPECT_EQ(at<BarRow>(panel(stats), 4, 0).valueSample, sample);
    stats.swapUsed = stats.swapTotal;
    EXPECT_EQ(at<BarRow>(panel(stats), 4, 0).valueSample, sample);
}

TEST_F(MemoryMenuViewTest, NoFigureOfTheSwapIsWiderThanItsColumn) {
    constexpr PanelFont kFont = {11, QFont::Normal, DigitWidth::monospaced};
    MemoryStats stats;
    using Size = std::uint64_t;
    for (const Size total : {Size{8'590'000'000}, Size{99'990'000'000}, Size{888'880'000'000}}) {
        stats.swapTotal = total;
        for (const Size used :
             {Size{0}, Size{999'900'000}, Size{8'880'000'000}, Size{88'880'000'000}, total}) {
            stats.swapUsed = std::min(used, total);
            const BarRow row = at<BarRow>(panel(stats), 4, 0);
            EXPECT_LE(PanelText::width(kFont, PanelText::plain(row.value)),
                      PanelText::width(kFont, PanelText::plain(row.valueSample)))
                << row.value;
        }
    }
}

TEST_F(MemoryMenuViewTest, TheSwapIsCalledByItsWholeNameInEveryLanguage) {
    constexpr PanelFont kLabel = {11};
    constexpr PanelFont kValue = {11, QFont::Normal, DigitWidth::monospaced};
    constexpr double kRow = 268;
    constexpr int kReadable = 9;
    for (const char* tag :
         {"en", "de", "es", "fr", "it", "ja", "ko", "nl", "pl", "pt-BR", "ru", "tr", "zh-Hans", "zh-Hant"}) {
        l10n.apply(tag);
        const BarRow row = at<BarRow>(panel(recorded()), 4, 0);
        const QString label = PanelText::plain(row.label);
        const double room = RowGeometry::barRow(kRow, PanelText::width(kLabel, label),
                                                PanelText::width(kValue, PanelText::plain(row.valueSample)))
                                .label.width;
        EXPECT_GE(PanelText::fitting(kLabel, label, room).size, kReadable) << row.label;
    }
}

TEST_F(MemoryMenuViewTest, WithoutSwapThereIsNoRow) {
    MemoryStats stats = recorded();
    stats.swapTotal = 0;
    EXPECT_THAT(outline(panel(stats)), ElementsAre("Memory", "Breakdown", "Processes", "Page ins"));
}

TEST_F(MemoryMenuViewTest, EachMetricHidesItsSection) {
    hide("breakdown", StatsModule::memory);
    EXPECT_THAT(outline(panel(recorded())), ElementsAre("Memory", "Processes", "Page ins", "Swap file"));
    hide("top", StatsModule::memory);
    EXPECT_THAT(outline(panel(recorded())), ElementsAre("Memory", "Page ins", "Swap file"));
    hide("pageio", StatsModule::memory);
    EXPECT_THAT(outline(panel(recorded())), ElementsAre("Memory", "Swap file"));
    hide("swap", StatsModule::memory);
    EXPECT_THAT(outline(panel(recorded())), ElementsAre("Memory"));
}

TEST_F(MemoryMenuViewTest, WithAllMetricsHiddenHeaderRingsAndFooterRemain) {
    hideAll(StatsModule::memory);
    snapshot.set(recordedFigures());
    const MenuPanel shown = makeView(StatsModule::memory)->panel();
    EXPECT_THAT(outline(shown), ElementsAre("Memory"));
    EXPECT_THAT(at<RingRow>(shown, 0, 1).rings, SizeIs(2));
    EXPECT_THAT(shown.footer.shortcuts, SizeIs(1));
}

TEST_F(MemoryMenuViewTest, AsksForFiveProcessesByResidentMemoryAtOnceAndEveryTwoSeconds) {
    const auto view = makeView(StatsModule::memory);
    ASSERT_THAT(lister.calls, SizeIs(1));
    EXPECT_THAT(lister.calls[0].arguments, ElementsAre("-Aceo", "rss=,pid=,comm=", "-m"));
    lister.calls[0].completion(" 2048 7 one\n");
    EXPECT_THAT(at<ProcessCard>(view->panel(), 2, 0).processes, ElementsAre(TopProcess{7, "one", 2097152}));
    runLoop.advance(2);
    EXPECT_THAT(lister.calls, SizeIs(2));
}

TEST_F(MemoryMenuViewTest, HiddenProcessesAreStillAskedFor) {
    hide("top", StatsModule::memory);
    const auto view = makeView(StatsModule::memory);
    lister.calls.at(0).completion("");
    runLoop.advance(2);
    EXPECT_THAT(lister.calls, SizeIs(2));
}

}  // namespace
}  // namespace velmora
