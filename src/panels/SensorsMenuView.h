#pragma once

#include "panels/ModuleMenuView.h"

namespace velmora {

/// The panel of the sensors.
class SensorsMenuView final : public ModuleMenuView {
public:
    SensorsMenuView(const PanelCollaborators& with, std::function<void()> dismiss);
    MenuPanel panel() const override;
};

/// `cpu` lends its temperature where the sensors have none of that category.
MenuPanel sensorsPanel(const SensorsStats& stats, const CPUStats& cpu, const PanelContext& context);

}  // namespace velmora
