#include "panels/PanelContext.h"

#include "panels/PanelFixture.h"

#include <gmock/gmock.h>

namespace velmora {
namespace {

using testing::SizeIs;

class PanelContextTest : public PanelFixture {};

TEST_F(PanelContextTest, AMetricIsVisibleUnlessItsOwnModuleHidesIt) {
    EXPECT_TRUE(context(StatsModule::cpu).vis("top"));
    hide("top", StatsModule::memory);
    EXPECT_TRUE(context(StatsModule::cpu).vis("top"));
    EXPECT_FALSE(context(StatsModule::memory).vis("top"));
    EXPECT_TRUE(context(StatsModule::memory).vis("swap"));
    EXPECT_TRUE(context(StatsModule::memory).vis("anything"));
}

TEST_F(PanelContextTest, TextsAndSizesAreInThePresentLanguage) {
    const PanelContext english = context(StatsModule::memory);
    EXPECT_EQ(english.name(), "Memory");
    EXPECT_EQ(english.text("cpu.coresCount", {8}), "8 cores");
    EXPECT_EQ(english.bytes(1'500'000'000), "1.5 GB");
    l10n.apply("de");
    const PanelContext german = context(StatsModule::memory);
    EXPECT_EQ(german.name(), l10n.string("mod.memory"));
    EXPECT_EQ(german.text("cpu.coresCount", {8}), "8 Kerne");
    EXPECT_EQ(german.bytes(1'500'000'000), "1,5\u00a0GB");
}

TEST_F(PanelContextTest, HoverHasTheIntervalOfTheModuleAndTheTextsOfTheChip) {
    settings.setSampleInterval(3);
    EXPECT_EQ(context(StatsModule::cpu).hover({}).interval, 3);
    EXPECT_EQ(context(StatsModule::battery).hover({}).interval, 10) << "the battery is never faster";
    EXPECT_EQ(context(StatsModule::cpu).hover({}).ago, "%ds ago");
    EXPECT_EQ(context(StatsModule::cpu).hover({}).now, "Now");
}

TEST_F(PanelContextTest, AFreshPanelHasNameAndFooterAndNoCards) {
    FooterIconRow footer;
    footer.shortcuts.resize(2);
    const MenuPanel panel = PanelContext(StatsModule::disk, settings, l10n, footer).panel();
    EXPECT_EQ(panel.name, "Disk");
    EXPECT_THAT(panel.cards, SizeIs(0));
    EXPECT_THAT(panel.footer.shortcuts, SizeIs(2));
}

}  // namespace
}  // namespace velmora
