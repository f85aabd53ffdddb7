#include "settings/module/MetricsGrid.h"

#include "settings/SettingsHouse.h"
#include "settings/controls/CheckBox.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Rects = std::vector<QRect>;

TEST(MetricsGridTest, TwoColumnsShareTheWidthBesideTheirSpace) {
    EXPECT_EQ(MetricsGrid::columnWidth(408), 200);
    EXPECT_EQ(MetricsGrid::columnWidth(0), 0);
    EXPECT_EQ(MetricsGrid::columnWidth(-5), 0);
}

TEST(MetricsGridTest, CellsAreFilledRowByRowEightPointsApart) {
    EXPECT_EQ(MetricsGrid::cells(408, {16, 16, 16, 16}),
              (Rects{{0, 0, 200, 16}, {208, 0, 200, 16}, {0, 24, 200, 16}, {208, 24, 200, 16}}));
}

TEST(MetricsGridTest, AnOddNumberLeavesTheLastCellEmpty) {
    EXPECT_EQ(MetricsGrid::cells(408, {16, 16, 16}),
              (Rects{{0, 0, 200, 16}, {208, 0, 200, 16}, {0, 24, 200, 16}}));
    EXPECT_EQ(MetricsGrid::cells(408, {16}), (Rects{{0, 0, 200, 16}}));
}

TEST(MetricsGridTest, ARowIsAsHighAsItsHigherBox) {
    const Rects cells = MetricsGrid::cells(408, {16, 48, 16});
    EXPECT_EQ(cells[2].top(), 56);
    EXPECT_EQ(MetricsGrid::cells(408, {48, 16, 16})[2].top(), 56);
}

TEST(MetricsGridTest, WithoutMetricsThereAreNoCells) {
    EXPECT_TRUE(MetricsGrid::cells(408, {}).empty());
}

TEST(MetricsGridTest, EachModuleHasItsMetricsInTheirOrder) {
    const SettingsHouse house;
    for (const StatsModule module : kAllModules) {
        MetricsGrid grid(module, [](const std::string&, bool) {});
        grid.retext(house.l10n);
        ASSERT_EQ(grid.boxes().size(), metrics(module).size());
        for (std::size_t index = 0; index < grid.boxes().size(); ++index) {
            EXPECT_EQ(grid.boxes()[index]->accessibleName().toStdString(),
                      house.l10n.string(metrics(module)[index].labelKey));
        }
    }
}

TEST(MetricsGridTest, ABoxAsksForTheOtherStateAndShowsItOnlyWhenToldSo) {
    SettingsHouse house;
    std::vector<std::pair<std::string, bool>> asked;
    MetricsGrid grid(StatsModule::disk,
                     [&](const std::string& key, bool on) { asked.emplace_back(key, on); });
    grid.showHidden(house.settings);
    grid.boxes()[1]->click();
    EXPECT_EQ(asked, (std::vector<std::pair<std::string, bool>>{{"activity", false}}));
    EXPECT_TRUE(grid.boxes()[1]->isOn());
    house.settings.setMetric("activity", false, StatsModule::disk);
    grid.showHidden(house.settings);
    EXPECT_FALSE(grid.boxes()[1]->isOn());
}

}  // namespace
}  // namespace velmora
