#include "panels/PanelFactory.h"

#include "panels/BatteryMenuView.h"
#include "panels/CPUMenuView.h"
#include "panels/DiskMenuView.h"
#include "panels/MemoryMenuView.h"
#include "panels/NetworkMenuView.h"
#include "panels/SensorsMenuView.h"

#include <utility>

namespace velmora {

std::unique_ptr<MenuView> makeMenuView(StatsModule module, const PanelCollaborators& with,
                                       std::function<void()> dismiss) {
    switch (module) {
        case StatsModule::cpu:
            return std::make_unique<CPUMenuView>(with, std::move(dismiss));
        case StatsModule::memory:
            return std::make_unique<MemoryMenuView>(with, std::move(dismiss));
        case StatsModule::disk:
            return std::make_unique<DiskMenuView>(with, std::move(dismiss));
        case StatsModule::network:
            return std::make_unique<NetworkMenuView>(with, std::move(dismiss));
        case StatsModule::sensors:
            return std::make_unique<SensorsMenuView>(with, std::move(dismiss));
        case StatsModule::battery:
            return std::make_unique<BatteryMenuView>(with, std::move(dismiss));
    }
    return nullptr;
}

}  // namespace velmora
