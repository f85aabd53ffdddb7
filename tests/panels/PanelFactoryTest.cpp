#include "panels/PanelFactory.h"

#include "panels/BatteryMenuView.h"
#include "panels/CPUMenuView.h"
#include "panels/DiskMenuView.h"
#include "panels/MemoryMenuView.h"
#include "panels/NetworkMenuView.h"
#include "panels/PanelFixture.h"
#include "panels/SensorsMenuView.h"

namespace velmora {
namespace {

class PanelFactoryTest : public PanelFixture {
protected:
    template <typename View>
    bool makes(StatsModule module) {
        const auto view = makeView(module);
        return dynamic_cast<View*>(view.get()) != nullptr;
    }
};

TEST_F(PanelFactoryTest, EachModuleHasAPanelOfItsOwn) {
    EXPECT_TRUE(makes<CPUMenuView>(StatsModule::cpu));
    EXPECT_TRUE(makes<MemoryMenuView>(StatsModule::memory));
    EXPECT_TRUE(makes<DiskMenuView>(StatsModule::disk));
    EXPECT_TRUE(makes<NetworkMenuView>(StatsModule::network));
    EXPECT_TRUE(makes<SensorsMenuView>(StatsModule::sensors));
    EXPECT_TRUE(makes<BatteryMenuView>(StatsModule::battery));
}

TEST_F(PanelFactoryTest, EachOpeningMakesANewPanel) {
    EXPECT_NE(makeView(StatsModule::cpu), makeView(StatsModule::cpu));
}

TEST_F(PanelFactoryTest, NothingRunsWhileNoPanelIsOpen) {
    for (const StatsModule module : kAllModules) makeView(module);
    const std::size_t questions = lister.calls.size();
    const int walks = counters->walkCount;
    for (const auto& tool : launcher.tools) EXPECT_FALSE(tool->isRunning);
    runLoop.advance(60);
    EXPECT_EQ(lister.calls.size(), questions);
    EXPECT_EQ(counters->walkCount, walks);
}

}  // namespace
}  // namespace velmora
