#pragma once

#include "panels/ModuleMenuView.h"
#include "panels/RefreshedList.h"
#include "samplers/TopProcess.h"

#include <memory>
#include <optional>

namespace velmora {

/// The panel of the battery. It samples the processes by power itself while that section is shown; hidden,
/// nothing is sampled.
class BatteryMenuView final : public ModuleMenuView {
public:
    BatteryMenuView(const PanelCollaborators& with, std::function<void()> dismiss);
    ~BatteryMenuView() override;
    MenuPanel panel() const override;

private:
    std::unique_ptr<EnergyProcessSampler> m_energySampler;
    RefreshedList<TopProcess> m_energyTop;
};

/// `energyTop` is in watts, highest first: empty while it is awaited, nothing where the machine does not tell
/// the power of processes.
MenuPanel batteryPanel(const BatteryStats& stats, const PanelContext& context,
                       const std::optional<std::vector<TopProcess>>& energyTop);

}  // namespace velmora
